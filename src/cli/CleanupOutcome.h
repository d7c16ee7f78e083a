#pragma once

#include "cli/Output.h"
#include "scanner/MoveToTrash.h"

namespace tidlo {

/// What came of moving a selection to the Trash.
struct CleanupOutcome
{
    Cleanup cleanup;
    qint64 items = 0; ///< How many were to be moved.
    int signal = 0;   ///< The signal that interrupted it, 0 if none did.

    /// For a person, in whole lines: how many were moved, and when the space returns.
    QString text() const;
    /// For a person, in whole lines: what stayed, and why. Empty if nothing did.
    QString complaint() const;
    nlohmann::ordered_json json() const;
    ExitStatus exitStatus() const;
};

} // namespace tidlo
