#include "ui/screens/ShownReport.h"

#include "model/TidloPercent.h"
#include "platform/ByteCountFormatter.h"

#include <algorithm>

namespace tidlo {

void ShownReport::setApp(AppViewModel *app)
{
    if (app == source)
        return;
    if (source)
        source->disconnect(this);
    source = app;
    if (source) {
        connect(source, &AppViewModel::cleanupReportChanged, this, &ShownReport::changed);
        connect(source, &AppViewModel::candidatesChanged, this, &ShownReport::changed);
        connect(source, &AppViewModel::totalsChanged, this, &ShownReport::changed);
    }
    Q_EMIT appChanged();
    Q_EMIT changed();
}

CleanupReport ShownReport::reportOf(const AppViewModel &app)
{
    if (const std::optional<CleanupReport> report = app.cleanupReport())
        return *report;
    CleanupReport preview{.recoveredBytes = app.selectedBytes(),
                          .protectedItems = app.protectedCount(),
                          .finalDiskUsedPercent = app.totals().diskUsedPercent,
                          .aiSummary = app.aiSummary()};
    for (const CleanupCandidate &candidate : app.selectedCandidates())
        preview.removedItems += candidate.paths.size();
    return preview;
}

QString ShownReport::recoveredText() const
{
    return byteCountText(report().recoveredBytes);
}

QString ShownReport::diskText() const
{
    return QStringLiteral("Disk now %1 full").arg(tidloPercent(report().finalDiskUsedPercent));
}

bool ShownReport::hasStayed() const
{
    return source && !source->stayed().isEmpty();
}

double ShownReport::freeShare() const
{
    return std::max(1 - report().finalDiskUsedPercent, 0.01);
}

QString ShownReport::freeText() const
{
    return tidloPercent(freeShare());
}

QList<ReportFigure> ShownReport::figures() const
{
    const CleanupReport shown = report();
    return {
        {.title = QStringLiteral("PROJECT FILES"),
         .value = byteCountText(categoryBytes(CleanupCategory::devProjects)),
         .detail = QStringLiteral("Source code kept intact"),
         .color = QStringLiteral("blue")},
        {.title = QStringLiteral("WHATSAPP"),
         .value = byteCountText(categoryBytes(CleanupCategory::whatsApp)),
         .detail = QStringLiteral("Chat database protected"),
         .color = QStringLiteral("green")},
        {.title = QStringLiteral("FILES REMOVED"),
         .value = QString::number(shown.removedItems),
         .detail = QStringLiteral("Moved to Trash"),
         .color = QStringLiteral("primaryText")},
        {.title = QStringLiteral("PROTECTED ITEMS"),
         .value = QString::number(shown.protectedItems),
         .detail = QStringLiteral("Flagged never-touch"),
         .color = QStringLiteral("red")},
    };
}

} // namespace tidlo
