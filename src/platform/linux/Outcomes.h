#pragma once

#include "platform/TrashOutcome.h"

/// The outcomes of a move, in few words where they are told.
inline TrashOutcome moved()
{
    return {.kind = TrashOutcome::Kind::moved, .reason = {}};
}

inline TrashOutcome gone()
{
    return {.kind = TrashOutcome::Kind::gone, .reason = {}};
}

inline TrashOutcome refused(const QString &reason)
{
    return {.kind = TrashOutcome::Kind::refused, .reason = reason};
}

/// \a what did not work, and the system's word for why.
inline TrashOutcome failed(const QString &what, int error)
{
    return {.kind = TrashOutcome::Kind::failed,
            .reason = what + QStringLiteral(": ") + qt_error_string(error),
            .error = error};
}
