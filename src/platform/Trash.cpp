#include "platform/Trash.h"

#include "platform/Paths.h"

namespace tidlo {

TrashOutcome TrashOutcome::moved(TrashedItem trashed)
{
    return {.kind = Kind::moved, .trashed = std::move(trashed)};
}

TrashOutcome TrashOutcome::gone()
{
    return {.kind = Kind::gone};
}

TrashOutcome TrashOutcome::refused(const QString &reason)
{
    return {.kind = Kind::refused, .reason = reason};
}

TrashOutcome TrashOutcome::failed(const QString &what, int error)
{
    return {.kind = Kind::failed, .reason = what + QStringLiteral(": ") + qt_error_string(error), .error = error};
}

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
        return TrashOutcome::refused(QStringLiteral("The path is empty."));
    if (path == "/")
        return TrashOutcome::refused(QStringLiteral("It is the root of all files."));
    if (name == "." || name == "..")
        return TrashOutcome::refused(QStringLiteral("The path ends in no name."));
    if (path.contains('\0')) // No file system takes such a name.
        return TrashOutcome::gone();
    return std::nullopt;
}

} // namespace tidlo
