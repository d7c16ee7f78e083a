#pragma once

#include "cli/Output.h"
#include "cli/RestoreSelection.h"
#include "scanner/RestoreItems.h"

namespace tidlo {

/// The result of putting a selection back.
struct RestoreOutcome
{
    RestoreSelection selection;
    Restoration restoration;
    int signal = 0; ///< The signal that interrupted it; 0 if none did.

    /// Requested items that are not at their places: those that stayed in the Trash, with the reason, and places where
    /// nothing was.
    QList<StayedItem> stayed() const;
    /// Complete lines for a person: how many were put back.
    QString text() const;
    /// Complete lines for a person: what stayed, and why. Empty if nothing stayed.
    QString complaint() const;
    nlohmann::ordered_json json() const;
    ExitStatus exitStatus() const;
};

} // namespace tidlo
