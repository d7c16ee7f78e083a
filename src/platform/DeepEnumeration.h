#pragma once

#include "platform/FileAttributes.h"
#include "platform/WalkNotes.h"

#include <QByteArrayView>
#include <QList>

#include <functional>

namespace tidlo {

/// An entry as a visitor meets it, valid during the call only.
class EnumeratedEntry
{
public:
    /// The last path component.
    virtual QByteArrayView name() const = 0;

    /// For a folder, the kind alone; for anything else, all of them if the enumeration asks for them.
    virtual const FileAttributes &attributes() const = 0;

    /// Whether an entry \a sibling exists in the same folder. A link counts when what it leads to exists.
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
        collect, ///< List and measure it, do not look for more inside.
    };

    Action action = Action::walkOn;
    int group = 0; ///< With collect: a number of the visitor's own, handed back with the item.
};

/// Finds entries beneath folders, however deep. Hidden entries are neither shown nor entered, packages are shown and
/// not entered, links and other mounts are never entered; what cannot be read is passed over.
struct DeepEnumeration
{
    QList<FilePath> roots; ///< Each may be reached through a link. Those that do not exist are passed over.

    /// Shown to the visitor: folders alone, or every entry with its attributes, which costs a system call a file.
    enum class Shown { folders, everything } shown = Shown::folders;

    /// Called for each entry, from several threads at once and in no fixed order: it must keep nothing.
    std::function<Visit(const EnumeratedEntry &)> visit;

    /// Decides by its path whether an item that the visitor collects is listed without being measured. Called as visit
    /// is; may be empty.
    std::function<bool(const FilePath &path)> leavesOut{};

    WalkNotes *notes = nullptr; ///< What else is told; it may be missing.
};

/// An entry that a visitor collected.
struct CollectedItem
{
    FilePath path;
    int group = 0;
    qint64 allocatedSize = 0; ///< As FileManager::allocatedSizes defines it.
    bool isLeftOut = false;   ///< Not measured, as the enumeration wanted it.
};

} // namespace tidlo
