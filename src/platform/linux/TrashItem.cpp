#include "platform/linux/TrashItem.h"

#include "platform/linux/Outcomes.h"

#include <cerrno>

namespace {

FilePath folderOf(const FilePath &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? FilePath(".") : path.left(qMax<qsizetype>(slash, 1));
}

} // namespace

std::optional<TrashOutcome> TrashItem::open(const SystemCalls &calls, FilePath path)
{
    while (path.size() > 1 && path.endsWith('/')) // A slash after a link would follow it.
        path.chop(1);
    ownName = path.mid(path.lastIndexOf('/') + 1);
    if (path.isEmpty())
        return refused(QStringLiteral("The path is empty."));
    if (path == "/")
        return refused(QStringLiteral("It is the root of all files."));
    if (ownName == "." || ownName == "..")
        return refused(QStringLiteral("The path ends in no name."));
    if (path.contains('\0'))
        return gone();
    std::optional<OpenFolder> found = openFolder(calls, folderOf(path));
    if (!found)
        return errno == ENOENT || errno == ENOTDIR ? gone()
                                                   : failed(QStringLiteral("Its folder cannot be opened"), errno);
    parent = std::move(*found);
    descriptor.reset(calls.openat(folder(), ownName.constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC, 0));
    if (!descriptor.isValid())
        return errno == ENOENT ? gone() : failed(QStringLiteral("It cannot be opened"), errno);
    return learn(calls);
}

std::optional<TrashOutcome> TrashItem::learn(const SystemCalls &calls)
{
    struct statx status;
    const bool succeeded = calls.statx(held(), "", AT_EMPTY_PATH, STATX_TYPE, &status) == 0;
    const std::optional<quint64> found = succeeded ? mountOf(calls, held()) : std::nullopt;
    if (!found)
        return failed(QStringLiteral("The system does not tell what it is"), errno);
    kind = status.stx_mode & S_IFMT;
    ownMount = *found;
    return std::nullopt;
}
