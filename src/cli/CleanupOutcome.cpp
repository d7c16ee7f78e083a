#include "cli/CleanupOutcome.h"

#include "cli/AskedMove.h"
#include "model/ModelJson.h"
#include "model/TidloPercent.h"
#include "platform/ByteCountFormatter.h"

#include <nlohmann/json.hpp>

namespace tidlo {

QString CleanupOutcome::text() const
{
    const CleanupReport &report = cleanup.report;
    const QString interrupted = signal == 0 ? QString() : QStringLiteral("Interrupted. ");
    const QString disk = QStringLiteral("Disk used: %1\n").arg(tidloPercent(report.finalDiskUsedPercent));
    if (report.removedItems == 0)
        return interrupted + QStringLiteral("Nothing was moved to the Trash.\n") + disk;
    return interrupted +
           QStringLiteral("Moved %1 (%2) to the Trash. The space returns when the Trash is emptied.\n")
               .arg(doneText(report.removedItems, items), byteCountText(report.recoveredBytes)) +
           disk + QStringLiteral("To put something back: tidlo-cli restore\n");
}

QString CleanupOutcome::complaint() const
{
    return stayedText(cleanup.stayed, QStringLiteral("stayed"));
}

nlohmann::ordered_json CleanupOutcome::json() const
{
    nlohmann::ordered_json json;
    json["report"] = toJson(cleanup.report);
    json["stayed"] = stayedJson(cleanup.stayed);
    return json;
}

ExitStatus CleanupOutcome::exitStatus() const
{
    return moveStatus(cleanup.stayed, signal);
}

} // namespace tidlo
