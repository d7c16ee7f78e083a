#pragma once

#include "cli/Output.h"
#include "scanner/MoveToTrash.h"

namespace tidlo {

/// The result of moving a selection to the Trash.
struct CleanupOutcome
{
    Cleanup cleanup;
    qint64 items = 0; ///< How many items were to be moved.
    int signal = 0;   ///< The signal that interrupted it; 0 if none did.

    /// Complete lines for a person: how many were moved, and when the space returns.
    QString text() const;
    /// Complete lines for a person: what stayed, and why. Empty if nothing stayed.
    QString complaint() const;
    nlohmann::ordered_json json() const;
    ExitStatus exitStatus() const;
};

} // namespace tidlo
