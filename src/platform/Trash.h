#pragma once

#include "model/FilePath.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace tidlo {

/// Identifies a file or folder on this machine, independent of its name. Once it is deleted, another one may get the
/// same numbers.
struct ItemIdentity
{
    quint64 device = 0;
    quint64 inode = 0;
    bool operator==(const ItemIdentity &) const = default;
};

/// An item in a Trash, with all that is needed to put it back.
struct TrashedItem
{
    FilePath trash;                         ///< The folder of that Trash.
    FilePath name;                          ///< The item's name in that Trash.
    FilePath origin;                        ///< Where it was, and goes back to.
    std::optional<ItemIdentity> identity{}; ///< Known only for items that this program itself has moved.

    bool operator==(const TrashedItem &) const = default;
};

/// The outcome of moving an item to the Trash, or back from it.
struct TrashOutcome
{
    enum class Kind {
        moved,        ///< It is in the Trash, with a record of where it came from; or back at its place, without one.
        gone,         ///< Nothing exists at its path or, when restoring, under its name in the Trash.
        refused,      ///< It was left alone on purpose; reason says why.
        failed,       ///< The system did not do it, and nothing has changed; reason says why, error is the errno.
        anotherMoved, ///< Something else had taken its place and was moved instead, with a record.
    };

    Kind kind = Kind::failed;
    QString reason{}; ///< For a person, empty when moved or gone.
    int error = 0;
    std::optional<TrashedItem> trashed{}; ///< The item in the Trash, if it was moved there.

    static TrashOutcome moved(TrashedItem trashed);
    static TrashOutcome gone();
    /// \a reason is a complete sentence.
    static TrashOutcome refused(const QString &reason);
    /// \a what is the first part of the reason; the system's message for \a error, an errno, follows it.
    static TrashOutcome failed(const QString &what, int error);

    bool operator==(const TrashOutcome &) const = default;
};

/// Moves the item at \a path itself, without following a link, to the Trash of the user whose home folder is \a home.
/// Nothing is ever copied, overwritten or deleted: an item that cannot be renamed into a Trash stays where it is. May
/// be called from any thread, and by several programs at once.
TrashOutcome moveToTrash(const FilePath &path, const FilePath &home);

/// Puts \a items of the user's Trashes back where they were, in order, each by one rename that never replaces anything,
/// and removes its record. Missing folders are made there, for the user alone. On the way there, only links that lead
/// to the home folder are followed; a place on another volume or in a Trash is refused. Returns an outcome for each
/// item that was tried, in the same order: \a stopRequested is called before each. May be called from any thread, and
/// by several programs at once.
QList<TrashOutcome> restoreFromTrash(const QList<TrashedItem> &items, const FilePath &home,
                                     const std::function<bool()> &stopRequested);

/// For each of \a paths, whether moveToTrash() would refuse it as things are now: because a volume is mounted there or
/// inside, or because of a Trash or the home folder. False if that cannot be found out. May be called from any thread.
QList<bool> leftByTrash(const QList<FilePath> &paths, const FilePath &home);

/// Whether \a path, which must not contain links, is a Trash or lies in one: that of the user whose home folder is
/// \a home, or any other that its name identifies.
bool liesInTrash(const FilePath &path, const FilePath &home);

/// A path that names an item itself: without slashes at its end, which would follow a link. "/" stays.
FilePath pathOfItself(FilePath path);

/// The refusal for a \a path, without slashes at its end, that cannot name one item. Nothing if it can.
std::optional<TrashOutcome> refusalOfPath(const FilePath &path);

} // namespace tidlo
