#pragma once

#include "model/FilePath.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace tidlo {

/// Identifies a file or folder of this machine, whatever it is called. Once it is deleted, another one may get the same
/// numbers.
struct ItemIdentity
{
    quint64 device = 0;
    quint64 inode = 0;
    bool operator==(const ItemIdentity &) const = default;
};

/// An item in a Trash: all that is needed to put it back.
struct TrashedItem
{
    FilePath trash;                         ///< The folder of that Trash.
    FilePath name;                          ///< What the item is called in there.
    FilePath origin;                        ///< Where it was, and goes back to.
    std::optional<ItemIdentity> identity{}; ///< Known only for what this program itself has moved.

    bool operator==(const TrashedItem &) const = default;
};

/// What became of an item that was to be moved to the Trash, or back from there.
struct TrashOutcome
{
    enum class Kind {
        moved,        ///< It is in the Trash, with a record of where it came from; or back at its place, without one.
        gone,         ///< Nothing exists at its path; or in the Trash, under its name.
        refused,      ///< It was left alone on purpose; reason says why.
        failed,       ///< The system did not do it, and nothing has changed; reason says why, error holds the errno.
        anotherMoved, ///< Something had taken its place and was moved instead, with a record.
    };

    Kind kind = Kind::failed;
    QString reason{}; ///< For a person, empty when moved or gone.
    int error = 0;
    std::optional<TrashedItem> trashed{}; ///< Where it is, when it was moved to the Trash.

    static TrashOutcome moved(TrashedItem trashed);
    static TrashOutcome gone();
    /// \a reason is a whole sentence.
    static TrashOutcome refused(const QString &reason);
    /// \a what did not work; the reason adds the system's word for \a error, an errno.
    static TrashOutcome failed(const QString &what, int error);

    bool operator==(const TrashOutcome &) const = default;
};

/// Moves the item at \a path itself, a link not followed, to the Trash of the user whose home folder is \a home.
/// Nothing is ever copied, overwritten or deleted: what the system cannot rename into a Trash stays where it is. May be
/// called from any thread, and by several programs at once.
TrashOutcome moveToTrash(const FilePath &path, const FilePath &home);

/// Puts \a items of the user's Trashes back where they were, in order, each by one rename that never replaces, and
/// removes its record. Folders that are missing there are made, for the user alone. The way there follows no link, but
/// for those that lead to the home; what would lead to another volume or into a Trash is refused. An outcome for each,
/// in the same order, for as many as were tried: \a stopRequested is asked before each. May be called from any thread,
/// and by several programs at once.
QList<TrashOutcome> restoreFromTrash(const QList<TrashedItem> &items, const FilePath &home,
                                     const std::function<bool()> &stopRequested);

/// Of each of \a paths, whether moveToTrash() would leave it on purpose as things are now: since a volume is mounted
/// there or inside, or for the sake of a Trash or of the home folder. What cannot be told counts as not left. May be
/// called from any thread.
QList<bool> leftByTrash(const QList<FilePath> &paths, const FilePath &home);

/// Whether what is at \a path, without links in it, is a Trash or lies in one: that of the user whose home folder is
/// \a home, or any other that its name tells.
bool liesInTrash(const FilePath &path, const FilePath &home);

/// A path as it names an item itself: without slashes at the end, which would follow a link. "/" stays.
FilePath pathOfItself(FilePath path);

/// What to tell instead of moving anything: \a path, without slashes at its end, cannot name one item. Nothing when it
/// can.
std::optional<TrashOutcome> refusalOfPath(const FilePath &path);

} // namespace tidlo
