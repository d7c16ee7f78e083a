#include "platform/RemovalCommand.h"

#include "platform/SmallFile.h"

namespace tidlo {

namespace {

constexpr qsizetype longestCommand = 200;

} // namespace

QString removalCommandBeside(const FilePath &executable)
{
    const FilePath name = executable.left(executable.lastIndexOf('/')) + "/../share/tidlo/uninstall-command";
    const OrError<QByteArray> file = readSmallFile(name, LinkAtEnd::followed);
    const QByteArray content = file ? file->trimmed() : QByteArray();
    const bool isOneLine = content.size() <= longestCommand && !content.contains('\n');
    return isOneLine ? QString::fromUtf8(content) : QString();
}

} // namespace tidlo
