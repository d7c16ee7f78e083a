#include "platform/linux/TrashItem.h"

#include "platform/TrashOutcomes.h"
#include "platform/TrashPath.h"

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
    if (const auto outcome = refusalOfPath(path))
        return outcome;
    ownName = lastPathComponent(path).toByteArray();
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

} // namespace tidlo
