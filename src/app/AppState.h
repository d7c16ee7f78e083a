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

/// All state of AppViewModel, with its values when the application starts. All but the last group are published.
struct AppState
{
    ScanPhase phase = ScanPhase::ready;
    AppSection section = AppSection::scan;
    ScanTotals totals;                  ///< Of the last scan; before one and after a cleanup, only of the disk.
    QList<CleanupCandidate> candidates; ///< Of the last scan, in the scanner's order.
    double scanProgress = 0;            ///< From 0 to 1, of a scan or a cleanup.
    QString scanLabel = QStringLiteral("Ready to scan");         ///< The current step.
    std::optional<CleanupRisk> selectedFilter;                   ///< Absent: candidates of every risk are visible.
    std::optional<CleanupReport> cleanupReport;                  ///< Of the last cleanup since the last scan began.
    std::optional<QString> aiSummary;                            ///< An explanation of the last scan, or an error text.
    bool showSetupWizard = false;                                ///< The wizard of the first run.
    int setupStep = 0;                                           ///< The wizard's page.
    bool showMoveToApplicationsPrompt = false;                   ///< The offer to move to the Applications folder.
    bool showMoveToApplicationsError = false;                    ///< The alert that it failed.
    QString moveToApplicationsErrorMessage = QStringLiteral(""); ///< The text of that alert.
    bool isGeneratingAI = false;                                 ///< An explanation is awaited.

    // Not published.

    std::optional<ExplainRequest> sent;    ///< The request that was sent to have the last scan explained.
    ScanResult scanned;                    ///< The result of the last scan; stays as it was when candidates change.
    ItemTicks ticks;                       ///< Which of its items are unticked.
    QList<StayedItem> stayed;              ///< What the cleanup of the report could not move.
    QList<TrashedItem> trashed;            ///< What the last cleanup moved to the Trash and nobody has put back here.
    QList<StayedItem> notPutBack;          ///< What the last attempt could not put back.
    std::optional<OwnPlace> proposedPlace; ///< A folder in which the user wants to have projects looked for.
    bool isSparedUnknown = false;          ///< A cleanup was refused: the list of spared paths cannot be read.
    bool isMovingFiles = false;            ///< A cleanup is under way, or its items are being put back.
};

} // namespace tidlo
