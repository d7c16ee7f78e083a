#pragma once

#include "TrashDecoder.h"
#include "platform/linux/XdgTrash.h"
#include "support/TemporaryHome.h"

#include <map>

namespace tidlo {

/// What a move, or a restore, finds.
struct SceneSetup
{
    bool isFolder = false;    ///< The item.
    bool isNameTaken = false; ///< By an item in the Trash and its record, and the next name by an item without one.
    bool canKeepFromReplacing = true; ///< Whether the file system knows RENAME_NOREPLACE.
    bool isBack = false;              ///< The item is in the Trash, and is to be put back.
    bool isParentMissing = false;     ///< The folders are gone that it was in.
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

    /// Puts it back with \a calls.
    TrashOutcome restore(const SystemCalls &calls) const;
    /// Does what the setup tells.
    TrashOutcome run(const SystemCalls &calls) const { return setup.isBack ? restore(calls) : move(calls); }
    /// What a restore is told of it.
    const TrashedItem &trashed() const { return *inTrash; }

    FilePath item() const { return top + (setup.isParentMissing ? "/in/old/folder/item" : "/in/item"); }
    FilePath parent() const { return top + "/in"; }
    FilePath trash() const;

    bool isAtPlace() const; ///< The item is where it was, whole.
    bool isInTrash() const; ///< The item is in the Trash, whole, with a whole record of where it was.
    bool isWhereItGoes() const { return setup.isBack ? isAtPlace() : isInTrash(); }
    bool isWhereItWas() const { return setup.isBack ? isInTrash() : isAtPlace(); }
    bool hasLitter() const; ///< Something is left of an attempt, or of a restore that went well.
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
    std::optional<TrashedItem> inTrash;
};

} // namespace tidlo
