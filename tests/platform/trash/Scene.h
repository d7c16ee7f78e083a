#pragma once

#include "TrashDecoder.h"
#include "platform/linux/XdgTrash.h"
#include "support/TemporaryHome.h"

#include <map>

namespace tidlo {

/// The situation before a move or a restore.
struct SceneSetup
{
    bool isFolder = false;    ///< Whether the item is a folder.
    bool isNameTaken = false; ///< Its name is taken in the Trash by an item with a record, and the next name by an item
                              ///< without one.
    bool canKeepFromReplacing = true; ///< Whether the file system knows RENAME_NOREPLACE.
    bool isBack = false;              ///< The item is in the Trash and is to be put back.
    bool isParentMissing = false;     ///< The folders that it was in are gone.
};

/// The Trash of \a home.
inline FilePath trashOf(const TemporaryHome &home)
{
    return home / ".local/share/Trash";
}

/// A small home folder with one item to be moved, and others nearby; can be made anew as often as needed.
class Scene final
{
public:
    /// In the folder \a top, which is emptied each time. It is the home folder, unless another \a home is given: then
    /// \a top must be a mount, and its own Trash is used.
    Scene(FilePath top, SceneSetup setup, FilePath home = {});

    /// Makes everything anew.
    void setUp();

    /// Moves the item with \a calls.
    TrashOutcome move(const SystemCalls &calls) const;

    /// Puts it back with \a calls.
    TrashOutcome restore(const SystemCalls &calls) const;
    /// Moves or restores the item, as the setup says.
    TrashOutcome run(const SystemCalls &calls) const { return setup.isBack ? restore(calls) : move(calls); }
    /// The item as it is passed to a restore.
    const TrashedItem &trashed() const { return *inTrash; }

    FilePath item() const { return top + (setup.isParentMissing ? "/in/old/folder/item" : "/in/item"); }
    FilePath parent() const { return top + "/in"; }
    FilePath trash() const;

    bool isAtPlace() const; ///< The item is where it was, complete.
    bool isInTrash() const; ///< The item is in the Trash, complete, with a complete record of where it was.
    bool isWhereItGoes() const { return setup.isBack ? isAtPlace() : isInTrash(); }
    bool isWhereItWas() const { return setup.isBack ? isInTrash() : isAtPlace(); }
    bool hasLitter() const; ///< Something is left behind by a failed attempt or a successful restore.
    bool areOthersUnchanged() const;
    size_t addedToTrash() const; ///< The number of new records, complete or not, and of new items without a record.

private:
    struct State
    {
        ino_t inode = 0;
        off_t size = 0;
        bool operator==(const State &) const = default;
    };
    static State stateOf(const FilePath &path);

    FilePath top;
    SceneSetup setup;
    FilePath home;
    std::map<FilePath, State> others;
    State itself;
    State inner;
    size_t inTrashBefore = 0;
    std::optional<TrashedItem> inTrash;
};

} // namespace tidlo
