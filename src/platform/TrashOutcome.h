#pragma once

#include <QString>

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
    QString reason; ///< For a person, empty when moved or gone.
    int error = 0;

    bool operator==(const TrashOutcome &) const = default;
};

} // namespace tidlo
