#pragma once

#include "platform/linux/ExclusiveRename.h"
#include "platform/linux/UserTrash.h"

namespace tidlo {

/// Puts items of one Trash back where they were: each by one rename, after which its record is removed.
class TrashRestore final
{
public:
    /// Both must outlive this.
    TrashRestore(const SystemCalls &calls, const UserTrash &trash)
        : calls(calls)
        , trash(trash)
    {}

    /// Puts back \a item, which is in this Trash. It ends in bounded time, whatever the system answers.
    TrashOutcome run(const TrashedItem &item) const;

private:
    /// An item that is held open.
    struct Held
    {
        Descriptor descriptor;
        bool isFolder = false;
    };
    std::optional<TrashOutcome> hold(const TrashedItem &item, Held &held) const;

    /// Opens the \a folder to which it goes back.
    std::optional<TrashOutcome> openFolderOf(const FilePath &origin, Descriptor &folder) const;
    TrashOutcome moveTo(const NameInFolder &place, const TrashedItem &item, const Held &held) const;
    /// Checks that the held item was renamed; if not, it is moved back into the Trash.
    TrashOutcome checked(const NameInFolder &place, const TrashedItem &item, const Held &held) const;
    OrError<Identity> find(const Held &held, const NameInFolder &place) const;
    NameInFolder inTrash(const TrashedItem &item) const { return {.folder = trash.folder.files(), .name = item.name}; }
    /// Does nothing if another record has its name now.
    void removeRecord(const FilePath &name, const ItemIdentity &record) const;

    const SystemCalls &calls;
    const UserTrash &trash;
};

} // namespace tidlo
