#pragma once

#include "cli/CleanupSelection.h"
#include "model/CleanupReport.h"
#include "platform/FileManager.h"

/// What came of moving a selection to the Trash.
struct CleanupOutcome
{
    CleanupReport report;
    qint64 items = 0;           ///< How many were to be moved.
    QList<FilePath> leftBehind; ///< Those still at their place. Empty after an interruption, when it is no failure.
    int signal = 0;             ///< The signal that interrupted it, 0 if none did.

    /// For a person, in whole lines: how many were moved, and when the space returns.
    QString text() const;
    /// For a person, in whole lines: what could not be moved. Empty if all could.
    QString complaint() const;
    int exitStatus() const;
};

/// Looks which items of \a selection are still there.
CleanupOutcome cleanupOutcome(const CleanupReport &report, const CleanupSelection &selection, int signal,
                              const FileManager &files);
