#pragma once

#include "platform/linux/ExclusiveRename.h"
#include "platform/linux/UserTrash.h"

namespace tidlo {

/// Puts items of one Trash back where they were: each by one rename, after which its record goes.
class TrashRestore final
{
public:
    /// Both must outlive this.
    TrashRestore(const SystemCalls &calls, const UserTrash &trash)
        : calls(calls)
        , trash(trash)
    {}

    /// Does it with \a item, which is in this Trash. It ends in bounded time, whatever the system answers.
    TrashOutcome run(const TrashedItem &item) const;

private:
    /// An item that is held open.
    struct Held
    {
        Descriptor descriptor;
        bool isFolder = false;
    };
    std::optional<TrashOutcome> hold(const TrashedItem &item, Held &held) const;

    /// Opens the \a folder that it goes back to.
    std::optional<TrashOutcome> openFolderOf(const FilePath &origin, Descriptor &folder) const;
    TrashOutcome moveTo(const NameInFolder &place, const TrashedItem &item, const Held &held) const;
    /// Makes sure that what was renamed is what is held; if not, it goes back into the Trash.
    TrashOutcome checked(const NameInFolder &place, const TrashedItem &item, const Held &held) const;
    OrError<Identity> find(const Held &held, const NameInFolder &place) const;
    NameInFolder inTrash(const TrashedItem &item) const { return {.folder = trash.folder.files(), .name = item.name}; }
    /// Unless another one has its name by now.
    void removeRecord(const FilePath &name, const ItemIdentity &record) const;

    const SystemCalls &calls;
    const UserTrash &trash;
};

} // namespace tidlo
