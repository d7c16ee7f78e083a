#pragma once

#include "platform/TrashOutcome.h"

namespace tidlo {

// The outcomes of a move, in few words where they are told.

/// It is in the Trash, with its record.
inline TrashOutcome moved()
{
    return {.kind = TrashOutcome::Kind::moved, .reason = {}};
}

/// Nothing is there.
inline TrashOutcome gone()
{
    return {.kind = TrashOutcome::Kind::gone, .reason = {}};
}

/// It is left alone, for a \a reason in a whole sentence.
inline TrashOutcome refused(const QString &reason)
{
    return {.kind = TrashOutcome::Kind::refused, .reason = reason};
}

/// It could not be moved: \a what did not work, and the system's word for \a error, an errno.
inline TrashOutcome failed(const QString &what, int error)
{
    return {.kind = TrashOutcome::Kind::failed,
            .reason = what + QStringLiteral(": ") + qt_error_string(error),
            .error = error};
}

} // namespace tidlo
