#include "platform/TrashPath.h"

#include "platform/FileName.h"
#include "platform/TrashOutcomes.h"

namespace tidlo {

FilePath pathOfItself(FilePath path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

std::optional<TrashOutcome> refusalOfPath(const FilePath &path)
{
    const QByteArrayView name = lastPathComponent(path);
    if (path.isEmpty())
        return refused(QStringLiteral("The path is empty."));
    if (path == "/")
        return refused(QStringLiteral("It is the root of all files."));
    if (name == "." || name == "..")
        return refused(QStringLiteral("The path ends in no name."));
    if (path.contains('\0')) // No file system takes such a name.
        return gone();
    return std::nullopt;
}

} // namespace tidlo
