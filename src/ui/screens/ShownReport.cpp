#include "ui/screens/ShownReport.h"

#include "model/TidloPercent.h"
#include "platform/ByteCountFormatter.h"
#include "platform/VisibleText.h"
#include "ui/screens/Excerpt.h"

#include <algorithm>

namespace tidlo {

ShownReport::ShownReport(AppViewModel &shown, QObject *parent)
    : QObject(parent)
    , app(shown)
{
    connect(&app, &AppViewModel::cleanupReportChanged, this, &ShownReport::changed);
    connect(&app, &AppViewModel::candidatesChanged, this, &ShownReport::changed);
    connect(&app, &AppViewModel::totalsChanged, this, &ShownReport::changed);
    connect(&app, &AppViewModel::isMovingFilesChanged, this, &ShownReport::canPutBackChanged);
    connect(&app, &AppViewModel::notPutBackChanged, this, &ShownReport::notPutBackChanged);
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
    return byteCountText(reportOf(app).recoveredBytes);
}

QString ShownReport::diskText() const
{
    return QStringLiteral("Disk now %1 full").arg(tidloPercent(reportOf(app).finalDiskUsedPercent));
}

bool ShownReport::hasStayed() const
{
    return !app.stayed().isEmpty();
}

QString ShownReport::notPutBack() const
{
    constexpr qsizetype told = 3;
    constexpr qsizetype charactersOfPath = 200;
    const QList<StayedItem> items = app.notPutBack();
    QStringList texts;
    for (const StayedItem &item : items.first(std::min(told, items.size()))) {
        const Excerpt path = excerptOf(visibleText(item.path), charactersOfPath);
        texts.append(path.text + (path.more > 0 ? QStringLiteral("…\n") : QStringLiteral("\n")) +
                     visibleText(item.reason));
    }
    if (items.size() > told)
        texts.append(QStringLiteral("And %1 more.").arg(items.size() - told));
    return texts.join(QStringLiteral("\n\n"));
}

double ShownReport::freeShare() const
{
    return std::max(1 - reportOf(app).finalDiskUsedPercent, 0.01);
}

QString ShownReport::freeText() const
{
    return tidloPercent(freeShare());
}

QList<ReportFigure> ShownReport::figures() const
{
    const CleanupReport shown = reportOf(app);
    return {
        {.title = QStringLiteral("PROJECT FILES"),
         .value = byteCountText(app.categoryBytes(CleanupCategory::devProjects)),
         .detail = QStringLiteral("Source code kept intact"),
         .hue = TidloTheme::Hue::AccentBlue},
        {.title = QStringLiteral("WHATSAPP"),
         .value = byteCountText(app.categoryBytes(CleanupCategory::whatsApp)),
         .detail = QStringLiteral("Chat database protected"),
         .hue = TidloTheme::Hue::AccentGreen},
        {.title = QStringLiteral("FILES REMOVED"),
         .value = QString::number(shown.removedItems),
         .detail = QStringLiteral("Moved to Trash"),
         .hue = TidloTheme::Hue::PrimaryText},
        {.title = QStringLiteral("PROTECTED ITEMS"),
         .value = QString::number(shown.protectedItems),
         .detail = QStringLiteral("Flagged never-touch"),
         .hue = TidloTheme::Hue::AccentRed},
    };
}

} // namespace tidlo
