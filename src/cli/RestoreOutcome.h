#pragma once

#include "cli/Output.h"
#include "cli/RestoreSelection.h"
#include "scanner/RestoreItems.h"

namespace tidlo {

/// What came of putting a selection back.
struct RestoreOutcome
{
    RestoreSelection selection;
    Restoration restoration;
    int signal = 0; ///< The signal that interrupted it, 0 if none did.

    /// What was named and is not at its place: what stayed in the Trash and why, and where nothing was.
    QList<StayedItem> stayed() const;
    /// For a person, in whole lines: how many were put back.
    QString text() const;
    /// For a person, in whole lines: what stayed, and why. Empty if nothing did.
    QString complaint() const;
    nlohmann::ordered_json json() const;
    ExitStatus exitStatus() const;
};

} // namespace tidlo
