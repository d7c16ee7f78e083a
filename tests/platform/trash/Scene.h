#pragma once

#include "TrashDecoder.h"
#include "platform/linux/XdgTrash.h"
#include "support/TemporaryHome.h"

#include <map>

namespace tidlo {

/// What a move finds.
struct SceneSetup
{
    bool isFolder = false;    ///< The item.
    bool isNameTaken = false; ///< By an item in the Trash and its record, and the next name by an item without one.
    bool canKeepFromReplacing = true; ///< Whether the file system knows RENAME_NOREPLACE.
};

/// Where the Trash of \a home is.
inline FilePath trashOf(const TemporaryHome &home)
{
    return home / ".local/share/Trash";
}

/// A small home with one item to be moved, and others nearby, made anew as often as a test wants.
class Scene final
{
public:
    /// In the folder \a top, which is emptied each time. It is the home, unless another \a home is given: then \a top
    /// must be a mount, and its own Trash is used.
    Scene(FilePath top, SceneSetup setup, FilePath home = {});

    /// Makes all of it anew.
    void setUp();

    /// Moves the item with \a calls.
    TrashOutcome move(const SystemCalls &calls) const;

    FilePath item() const { return top + "/in/item"; }
    FilePath parent() const { return top + "/in"; }
    FilePath trash() const;

    bool isAtPlace() const; ///< The item is where it was, whole.
    bool isInTrash() const; ///< The item is in the Trash, whole, with a whole record of where it was.
    bool areOthersUnchanged() const;
    size_t addedToTrash() const; ///< How many records, whole or not, and items without one are new.

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
};

} // namespace tidlo
