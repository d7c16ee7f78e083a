#include "platform/linux/TrashItem.h"

#include "platform/Trash.h"

#include <cerrno>

namespace tidlo {

namespace {

FilePath folderOf(const FilePath &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? FilePath(".") : path.left(qMax<qsizetype>(slash, 1));
}

} // namespace

std::optional<TrashOutcome> TrashItem::open(const SystemCalls &calls, const FilePath &givenPath)
{
    const FilePath path = pathOfItself(givenPath);
    if (auto outcome = refusalOfPath(path))
        return outcome;
    ownName = lastPathComponent(path).toByteArray();
    OrError<OpenFolder> found = openFolder(calls, folderOf(path));
    if (found.error() == ENOENT || found.error() == ENOTDIR)
        return TrashOutcome::gone();
    if (!found)
        return TrashOutcome::failed(QStringLiteral("Its folder cannot be opened"), found.error());
    parent = std::move(*found);
    descriptor = Descriptor(calls.openat(folder(), ownName.constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC, 0));
    if (descriptor.error() == ENOENT)
        return TrashOutcome::gone();
    if (!descriptor.isValid())
        return TrashOutcome::failed(QStringLiteral("It cannot be opened"), descriptor.error());
    return learn(calls);
}

std::optional<TrashOutcome> TrashItem::learn(const SystemCalls &calls)
{
    struct statx status;
    const int error = calls.statx(held(), "", AT_EMPTY_PATH, STATX_TYPE, &status) == 0 ? 0 : errno;
    const OrError<quint64> found = error == 0 ? mountOf(calls, held()) : Errno{error};
    if (!found)
        return TrashOutcome::failed(QStringLiteral("The system does not say what it is"), found.error());
    kind = status.stx_mode & S_IFMT;
    ownMount = *found;
    return std::nullopt;
}

} // namespace tidlo
