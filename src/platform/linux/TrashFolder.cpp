#include "platform/linux/TrashFolder.h"

#include "platform/FileName.h"
#include "platform/TrashOutcomes.h"

#include <algorithm>
#include <cerrno>

namespace tidlo {

namespace {

constexpr int asFolder = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

std::optional<TrashOutcome> checkOwner(const SystemCalls &calls, int folder)
{
    struct statx status;
    if (calls.statx(folder, "", AT_EMPTY_PATH, STATX_UID, &status) != 0)
        return failed(QStringLiteral("The system does not tell whose Trash it is"), errno);
    if (status.stx_uid != geteuid())
        return refused(QStringLiteral("The Trash there belongs to somebody else."));
    return std::nullopt;
}

/// Opens the folder \a name, which must be a real one and the user's own, as \a opened. It is made if it is missing.
std::optional<TrashOutcome> openOwn(const SystemCalls &calls, int parent, const FilePath &name, Descriptor &opened)
{
    opened.reset(calls.openat(parent, name.constData(), asFolder, 0));
    if (!opened.isValid() && errno == ENOENT) {
        if (calls.mkdirat(parent, name.constData(), 0700) != 0 && errno != EEXIST) // Another program may be faster.
            return failed(QStringLiteral("The Trash there cannot be made"), errno);
        opened.reset(calls.openat(parent, name.constData(), asFolder, 0));
    }
    if (!opened.isValid() && errno == ENOTDIR)
        return refused(QStringLiteral("The Trash there is a link or a file, not a folder."));
    if (!opened.isValid())
        return failed(QStringLiteral("The Trash there cannot be opened"), errno);
    return checkOwner(calls, opened.get());
}

/// A Trash for everybody must not let one take away what another put in.
bool isForEverybody(const SystemCalls &calls, const Descriptor &folder)
{
    struct statx status;
    return folder.isValid() && calls.statx(folder.get(), "", AT_EMPTY_PATH, STATX_MODE, &status) == 0 &&
           (status.stx_mode & S_ISVTX) != 0;
}

} // namespace

std::optional<TrashOutcome> TrashFolder::openInHome(const SystemCalls &calls, const PlannedFolder &trash)
{
    if (trash.missing.isEmpty()) {
        const auto problem = checkOwner(calls, trash.nearest.descriptor.get());
        return problem ? problem : openInside(calls, trash.nearest.descriptor);
    }
    Descriptor made;
    for (const FilePath &name : trash.missing) {
        Descriptor next;
        const int parent = made.isValid() ? made.get() : trash.nearest.descriptor.get();
        if (const auto problem = openOwn(calls, parent, name, next))
            return problem;
        made = std::move(next);
    }
    return openInside(calls, made);
}

std::optional<TrashOutcome> TrashFolder::openOnMount(const SystemCalls &calls, const Mount &mount)
{
    const std::optional<OpenFolder> top = openFolder(calls, mount.point);
    if (!top || top->mount != mount.id)
        return failed(QStringLiteral("The top of its volume cannot be opened"), top ? ESTALE : errno);
    base = top->path;
    const QByteArray user = QByteArray::number(geteuid());
    Descriptor trash;
    const Descriptor shared(calls.openat(top->descriptor.get(), ".Trash", asFolder, 0));
    if (isForEverybody(calls, shared) && !openOwn(calls, shared.get(), user, trash))
        return openInside(calls, trash);
    const auto problem = openOwn(calls, top->descriptor.get(), ".Trash-" + user, trash);
    return problem ? problem : openInside(calls, trash);
}

std::optional<TrashOutcome> TrashFolder::openInside(const SystemCalls &calls, const Descriptor &trash)
{
    if (const auto problem = openOwn(calls, trash.get(), "files", items))
        return problem;
    if (const auto problem = openOwn(calls, trash.get(), "info", records))
        return problem;
    struct statvfs status;
    if (calls.fstatvfs(records.get(), &status) == 0)
        nameLimit = std::min<qsizetype>(NAME_MAX, status.f_namemax);
    return std::nullopt;
}

FilePath TrashFolder::recordedPath(const FilePath &path) const
{
    return base.isEmpty() ? path : path.mid(joined(base, {}).size());
}

} // namespace tidlo
