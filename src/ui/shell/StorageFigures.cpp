#include "ui/shell/StorageFigures.h"

#include "model/TidloPercent.h"
#include "ui/screens/Presentation.h"

#include <array>

namespace tidlo {

namespace {

constexpr std::array shownCategories{CleanupCategory::devProjects, CleanupCategory::whatsApp, CleanupCategory::caches,
                                     CleanupCategory::downloads, CleanupCategory::oldLargeFiles};

CategoryFigure figureOf(CleanupCategory category, qint64 bytes)
{
    const CategoryPresentation &presentation = presentationOf(category);
    return {.title = rawValue(category),
            .subtitle = presentation.subtitle.toString(),
            .symbol = presentation.symbol.toString(),
            .hue = presentation.hue,
            .bytesText = byteCountOrDash(bytes),
            .selected = category == CleanupCategory::devProjects};
}

} // namespace

StorageFigures::StorageFigures(AppViewModel &shown, QObject *parent)
    : QObject(parent)
    , app(shown)
{
    connect(&app, &AppViewModel::totalsChanged, this, &StorageFigures::totalsChanged);
    connect(&app, &AppViewModel::candidatesChanged, this, &StorageFigures::updateCategories);
    updateCategories();
}

QString StorageFigures::diskStatus() const
{
    const double used = usedShare();
    return used <= 0 ? QStringLiteral("Ready") : QStringLiteral("%1 full").arg(tidloPercent(used));
}

double StorageFigures::usedShare() const
{
    return app.totals().diskUsedPercent;
}

QString StorageFigures::usedText() const
{
    return tidloPercent(usedShare());
}

double StorageFigures::recoverableShare() const
{
    return app.totals().recoverablePercent;
}

QString StorageFigures::recoverableText() const
{
    return tidloPercent(recoverableShare());
}

void StorageFigures::updateCategories()
{
    QList<CategoryFigure> updated;
    for (const CleanupCategory category : shownCategories)
        updated.append(figureOf(category, app.categoryBytes(category)));
    if (updated == figures)
        return; // Otherwise the cards would be made anew.
    figures = updated;
    Q_EMIT categoriesChanged();
}

} // namespace tidlo
