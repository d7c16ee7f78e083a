#include "platform/RemovalCommand.h"

#include "platform/Descriptor.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace tidlo {

namespace {

constexpr qint64 longestCommand = 200;

bool isRegular(const Descriptor &file)
{
    struct stat status = {};
    return file.isValid() && fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

QString removalCommandBeside(const FilePath &executable)
{
    const FilePath name = executable.left(executable.lastIndexOf('/')) + "/../share/tidlo/uninstall-command";
    const Descriptor descriptor(open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    QFile file;
    if (!isRegular(descriptor) || !file.open(descriptor.get(), QIODevice::ReadOnly))
        return {};
    const QByteArray content = file.read(longestCommand + 2).trimmed();
    const bool isOneLine = content.size() <= longestCommand && !content.contains('\n');
    return isOneLine ? QString::fromUtf8(content) : QString();
}

} // namespace tidlo
