#include "platform/linux/UserTrash.h"

#include "platform/Paths.h"

#include <algorithm>
#include <cerrno>

namespace tidlo {

namespace {

/// Opens the Trashes one after another.
class Search final
{
public:
    Search(const SystemCalls &calls, const std::function<bool(const FilePath &path)> &isWanted)
        : calls(calls)
        , isWanted(isWanted)
    {}

    void lookInHome(const UserFolders &folders, const MountTable &mounts)
    {
        const PlannedFolder &planned = folders.trashes.front().folder;
        if (!planned.missing.isEmpty() || !isWanted(planned.path()))
            return;
        OrError<OpenFolder> top = openFolder(calls, mounts.mount(planned.nearest.mount).point);
        if (!top || top->mount != planned.nearest.mount)
            return add(planned.path(), TrashOutcome::failed(QStringLiteral("The top of its volume cannot be opened"),
                                                            top ? ESTALE : top.error()));
        add(planned.nearest.descriptor,
            {.folder = {},
             .top = std::move(*top),
             .home = pathOfItself(folders.home.path),
             .homeItself = folders.home.folder.path()},
            planned.path());
    }

    void lookOn(const Mount &mount)
    {
        const FilePath amongAll = joined(mount.point, ".Trash/" + trashNameAmongAll());
        const FilePath atTop = joined(mount.point, trashNameAtTop());
        if (isWanted(amongAll))
            lookAt(mount, amongAll, [this](const Descriptor &top) {
                const Descriptor all = openTrashForEverybody(calls, top);
                return all.isValid() ? open(all, trashNameAmongAll()) : Descriptor::failed(ENOENT);
            });
        if (isWanted(atTop))
            lookAt(mount, atTop, [this](const Descriptor &top) { return open(top, trashNameAtTop()); });
    }

    UserTrashes found;

private:
    template <typename Open>
    void lookAt(const Mount &mount, const FilePath &path, const Open &openTrash)
    {
        OrError<OpenFolder> top = openFolder(calls, mount.point);
        if (!top || top->mount != mount.id)
            return; // It must not be entered, or another mount covers it.
        const Descriptor trash = openTrash(top->descriptor);
        if (trash.isValid())
            add(trash, {.folder = {}, .top = std::move(*top), .home = {}}, path);
        else if (trash.error() != ENOENT)
            add(path, TrashOutcome::failed(QStringLiteral("The Trash there cannot be opened"), trash.error()));
    }

    Descriptor open(const Descriptor &folder, const FilePath &name) const
    {
        constexpr int asFolder = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
        return Descriptor(calls.openat(folder.get(), name.constData(), asFolder, 0));
    }

    void add(const Descriptor &folder, UserTrash trash, const FilePath &path)
    {
        const auto problem = trash.folder.openExisting(calls, folder, path);
        if (problem && problem->kind != TrashOutcome::Kind::gone)
            add(path, *problem);
        if (!problem && !isKnown(trash))
            found.usable.push_back(std::move(trash));
    }

    void add(const FilePath &path, const TrashOutcome &problem)
    {
        found.unusable.append({.path = path, .outcome = problem});
    }

    bool isKnown(const UserTrash &trash) const
    {
        return std::ranges::any_of(found.usable, [&](const UserTrash &known) {
            const OrError<Identity> same = identityAt(calls, trash.folder.info(), known.folder.info(), ".");
            return same && *same == Identity::same;
        });
    }

    const SystemCalls &calls;
    const std::function<bool(const FilePath &path)> &isWanted;
};

} // namespace

std::optional<FilePath> UserTrash::originOf(const FilePath &recorded) const
{
    const bool isAbsolute = recorded.startsWith('/');
    if (home.isEmpty())
        return isAbsolute ? std::nullopt : std::optional(joined(top.path, recorded));
    if (!isAbsolute)
        return std::nullopt;
    return isAtOrBelow(recorded, home) && home != homeItself ? homeItself + recorded.mid(home.size()) : recorded;
}

OrError<UserTrashes> openTrashes(const SystemCalls &calls, const FilePath &home, const FilePath &dataHome,
                                 const std::function<bool(const FilePath &path)> &isWanted)
{
    const OrError<MountTable> mounts = readMounts(calls);
    if (!mounts)
        return Errno{mounts.error()};
    const OrError<UserFolders> folders = findUserFolders(calls, *mounts, home, dataHome);
    if (!folders)
        return Errno{folders.error()};
    Search search(calls, isWanted);
    search.lookInHome(*folders, *mounts);
    for (const Mount &mount : mounts->all()) {
        if (mount.type != "autofs") // Looking there would mount a file system that nobody asked for.
            search.lookOn(mount);
    }
    return std::move(search.found);
}

} // namespace tidlo
