#pragma once

#include "platform/FileAttributes.h"
#include "platform/WalkNotes.h"

#include <QByteArrayView>
#include <QList>

#include <functional>

namespace tidlo {

/// An entry that is passed to a visitor, valid only during the call.
class EnumeratedEntry
{
public:
    /// The last path component.
    virtual QByteArrayView name() const = 0;

    /// For a folder, only the kind; for anything else, all attributes if the enumeration asks for them.
    virtual const FileAttributes &attributes() const = 0;

    /// Whether an entry \a sibling exists in the same folder. A link counts if its target exists.
    virtual bool siblingExists(const char *sibling) const = 0;

protected:
    ~EnumeratedEntry() = default;
};

/// What to do with an entry.
struct Visit
{
    enum class Action {
        walkOn,  ///< Do not list it; enter it if it is a folder and no package.
        skip,    ///< Do not list it, do not enter it.
        collect, ///< List and measure it, without looking for more inside.
    };

    Action action = Action::walkOn;
    int group = 0; ///< With collect: a number chosen by the visitor and returned with the item.
};

/// Finds entries beneath folders, at any depth. Hidden entries are neither shown nor entered, packages are shown but
/// not entered, links and other mounts are never entered; what cannot be read is skipped.
struct DeepEnumeration
{
    QList<FilePath> roots; ///< Each may be reached through a link. Missing ones are skipped.

    /// What the visitor is shown: only folders, or every entry with its attributes, which costs a system call per file.
    enum class Shown { folders, everything } shown = Shown::folders;

    /// Called for each entry, from several threads at once and in no fixed order: it must not keep any state.
    std::function<Visit(const EnumeratedEntry &)> visit;

    /// Decides by its path whether a collected item is listed without being measured. Called in the same way as visit;
    /// may be empty.
    std::function<bool(const FilePath &path)> leavesOut{};

    WalkNotes *notes = nullptr; ///< Receives further findings of the walk; may be null.
};

/// An entry that a visitor collected.
struct CollectedItem
{
    FilePath path;
    int group = 0;
    qint64 allocatedSize = 0; ///< As FileManager::allocatedSizes defines it.
    bool isLeftOut = false;   ///< Not measured, since leavesOut was true for it.
};

} // namespace tidlo
