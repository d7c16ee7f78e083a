#pragma once

#include "model/FilePath.h"

#include <QString>

#include <optional>

namespace tidlo {

/// What became of an item that was to be moved to the Trash.
struct TrashOutcome
{
    enum class Kind {
        moved,        ///< It is in the Trash, with a record of where it came from.
        gone,         ///< Nothing exists at its path.
        refused,      ///< It was left alone on purpose; reason says why.
        failed,       ///< The system did not do it, and nothing has changed; reason says why, error holds the errno.
        anotherMoved, ///< What took its place meanwhile is in the Trash, with a record; it is where it was put itself.
    };

    Kind kind = Kind::failed;
    QString reason{}; ///< For a person, empty when moved or gone.
    int error = 0;

    static TrashOutcome moved();
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

/// Whether what is at \a path, without links in it, is a Trash or lies in one: that of the user whose home folder is
/// \a home, or any other that its name tells.
bool liesInTrash(const FilePath &path, const FilePath &home);

/// A path as it names an item itself: without slashes at the end, which would follow a link. "/" stays.
FilePath pathOfItself(FilePath path);

/// What to tell instead of moving anything: \a path, without slashes at its end, cannot name one item. Nothing when it
/// can.
std::optional<TrashOutcome> refusalOfPath(const FilePath &path);

} // namespace tidlo
