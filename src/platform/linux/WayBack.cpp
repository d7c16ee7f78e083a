#include "platform/linux/WayBack.h"

#include <cerrno>

namespace tidlo {

namespace {

/// Opens the folder \a name in \a parent, and makes it if it is missing.
std::optional<TrashOutcome> openStep(const SystemCalls &calls, int parent, const FilePath &name, quint64 mount,
                                     Descriptor &opened)
{
    const auto open = [&] { return Descriptor(calls.openat(parent, name.constData(), asFolder | O_NOFOLLOW, 0)); };
    opened = open();
    if (opened.error() == ENOENT) {
        if (calls.mkdirat(parent, name.constData(), 0700) != 0 && errno != EEXIST) // Another program may be faster.
            return TrashOutcome::failed(QStringLiteral("The folder it was in cannot be made"), errno);
        opened = open();
    }
    if (opened.error() == ENOTDIR || opened.error() == ELOOP)
        return TrashOutcome::refused(QStringLiteral("A link or a file is on the way to its place."));
    const OrError<quint64> found = opened.isValid() ? mountOf(calls, opened.get()) : Errno{opened.error()};
    if (!found)
        return TrashOutcome::failed(QStringLiteral("The folder it was in cannot be opened"), found.error());
    if (*found != mount)
        return TrashOutcome::refused(QStringLiteral("Another volume is mounted on the way to its place."));
    return std::nullopt;
}

} // namespace

std::optional<TrashOutcome> openWayBack(const SystemCalls &calls, const OpenFolder &top, const FilePath &path,
                                        Descriptor &opened)
{
    open_how how{};
    how.flags = asFolder;
    how.resolve = RESOLVE_NO_SYMLINKS | RESOLVE_NO_MAGICLINKS | RESOLVE_NO_XDEV;
    opened = Descriptor(calls.openat2(top.descriptor.get(), path.isEmpty() ? "." : path.constData(), &how, sizeof how));
    if (opened.isValid())
        return std::nullopt;

    // Something is missing or in the way, or the system lacks this call: then go step by step.
    opened = Descriptor(calls.openat(top.descriptor.get(), ".", asFolder, 0));
    if (!opened.isValid())
        return TrashOutcome::failed(QStringLiteral("The top of its volume cannot be opened"), opened.error());
    for (const FilePath &name : path.isEmpty() ? QList<FilePath>() : path.split('/')) {
        Descriptor next;
        if (auto problem = openStep(calls, opened.get(), name, top.mount, next))
            return problem;
        opened = std::move(next);
    }
    return std::nullopt;
}

} // namespace tidlo
