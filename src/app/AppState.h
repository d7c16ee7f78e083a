#pragma once

#include "ai/ExplainRequest.h"
#include "app/ItemTicks.h"
#include "model/AppSection.h"
#include "model/CleanupReport.h"
#include "scanner/MoveToTrash.h"
#include "scanner/OwnPlaces.h"

#include <QString>

#include <optional>

namespace tidlo {

/// Everything that AppViewModel knows, as it stands when the application starts. It publishes all but the last group.
struct AppState
{
    ScanPhase phase = ScanPhase::ready;
    AppSection section = AppSection::scan;
    ScanTotals totals;                  ///< Of the last scan; before it and after a cleanup, of the disk alone.
    QList<CleanupCandidate> candidates; ///< Of the last scan, in the scanner's order.
    double scanProgress = 0;            ///< From 0 to 1, of a scan or a cleanup.
    QString scanLabel = QStringLiteral("Ready to scan");         ///< The step that is under way.
    std::optional<CleanupRisk> selectedFilter;                   ///< Absent: candidates of any risk are visible.
    std::optional<CleanupReport> cleanupReport;                  ///< Of the last cleanup since the last scan began.
    std::optional<QString> aiSummary;                            ///< An explanation of the last scan, or an error text.
    bool showSetupWizard = false;                                ///< The wizard of the first run.
    int setupStep = 0;                                           ///< The wizard's page.
    bool showMoveToApplicationsPrompt = false;                   ///< The offer to move to the Applications folder.
    bool showMoveToApplicationsError = false;                    ///< The alert that it failed.
    QString moveToApplicationsErrorMessage = QStringLiteral(""); ///< The text of that alert.
    bool isGeneratingAI = false;                                 ///< An explanation is awaited.

    // Not published.

    std::optional<ExplainRequest> sent;    ///< What was sent to have the last scan explained.
    ScanResult scanned;                    ///< What the last scan found, whatever became of its candidates.
    ItemTicks ticks;                       ///< The items of it that are unticked.
    QList<StayedItem> stayed;              ///< What the cleanup of the report could not move.
    QList<TrashedItem> trashed;            ///< What the last cleanup moved to the Trash and was not put back here.
    QList<StayedItem> notPutBack;          ///< What could not be put back at the last attempt.
    std::optional<OwnPlace> proposedPlace; ///< A folder that somebody wants projects to be looked for in.
    bool isSparedUnknown = false; ///< A cleanup was refused: the list of what is never to be suggested cannot be read.
    bool isMovingFiles = false;   ///< A cleanup is under way, or its items are being put back.
};

} // namespace tidlo
