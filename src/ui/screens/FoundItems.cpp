#include "ui/screens/FoundItems.h"

#include "model/CheckedSum.h"
#include "platform/ByteCountFormatter.h"
#include "platform/VisibleText.h"
#include "ui/screens/Excerpt.h"

#include <QLocale>

#include <algorithm>

namespace tidlo {

namespace {

constexpr qsizetype longestHolder = 80; ///< Characters of a path in a menu.

} // namespace

FoundItems::FoundItems(AppViewModel &shown, QObject *parent)
    : ItemList(shown, parent)
{
    connect(&shown, &AppViewModel::candidatesChanged, this, &FoundItems::updateTicks);
}

void FoundItems::inspect(const QUuid &id)
{
    finding = shownApp().scannedCandidate(id);
    sizes = shownApp().sizesOf(finding.id);
    sizes.resize(finding.paths.size());
    ticks = shownApp().ticksOf(finding.id);
    whatElse.clear();
    show(visibleText(finding.title), finding.paths);
    Q_EMIT noteChanged();
}

void FoundItems::clear()
{
    inspect({});
}

bool FoundItems::isTickable() const
{
    return finding.risk != CleanupRisk::never;
}

void FoundItems::toggle(int row)
{
    if (row < 0 || row >= count())
        return;
    const int item = shownItems().at(row);
    setTicks({item}, !ticks.at(item));
}

void FoundItems::tickShown(bool ticked)
{
    setTicks(shownItems(), ticked);
}

QString FoundItems::spareText(int row) const
{
    const FilePath *path = pathAt(row);
    const QList<HoldingItem> holders = path ? shownApp().holdersOf(*path) : QList<HoldingItem>();
    if (holders.isEmpty())
        return QStringLiteral("Never suggest this");
    const Excerpt holder = excerptOf(visibleText(holders.first().path), longestHolder);
    return QStringLiteral("Never suggest this, nor “%1%2”, which holds it (%3)%4")
        .arg(holder.text, holder.more > 0 ? QStringLiteral("…") : QString(), byteCountText(holders.first().bytes),
             holders.size() > 1 ? QStringLiteral(", and %1 more").arg(holders.size() - 1) : QString());
}

void FoundItems::spare(int row)
{
    const FilePath *chosen = pathAt(row);
    if (!chosen)
        return;
    const FilePath path = *chosen;
    const QString searched = filter();
    const bool isKept = shownApp().spare(path);
    if (isKept) {
        inspect(finding.id);
        setFilter(searched);
    }
    whatElse = isKept ? QStringLiteral("Never suggested again: %1. The menu of the settings shows the list.")
                            .arg(visibleText(path))
                      : QStringLiteral("The preferences cannot be read or written, so this cannot be kept.");
    Q_EMIT noteChanged();
}

void FoundItems::setTicks(const QList<int> &items, bool ticked)
{
    const QList<ItemElsewhere> others = shownApp().tickItems(finding.id, items, ticked);
    whatElse.clear();
    if (!others.isEmpty()) {
        whatElse = QStringLiteral("Unticked in “%1” as well: %2")
                       .arg(visibleText(others.first().title), visibleText(others.first().path));
        if (others.size() > 1)
            whatElse += QStringLiteral(", and %1 more").arg(others.size() - 1);
    }
    Q_EMIT noteChanged();
}

/// The finding that is shown may have left the list of findings in the meantime: then none of its items is ticked.
void FoundItems::updateTicks()
{
    ticks = shownApp().ticksOf(finding.id);
    ticks.resize(finding.paths.size());
    if (count() > 0)
        Q_EMIT dataChanged(index(0), index(count() - 1), {TickedRole});
    Q_EMIT shownChanged();
}

void FoundItems::setLargestFirst(bool largestFirst)
{
    if (largestFirst == sorted)
        return;
    sorted = largestFirst;
    arrange();
    Q_EMIT orderChanged();
}

QString FoundItems::summary() const
{
    qint64 all = 0;
    qint64 ticked = 0;
    for (qsizetype item = 0; item < sizes.size(); ++item) {
        all = checkedSum(all, sizes.at(item));
        ticked += ticks.at(item) ? sizes.at(item) : 0;
    }
    const qsizetype number = ticks.count(true);
    const QString forecast = forecastText(shownApp().forecast(finding.id));
    const QString frees = forecast.isEmpty() ? QString() : QStringLiteral(" · ") + forecast;
    if (number == 0 || number == ticks.size())
        return QStringLiteral("%1 · %2").arg(countText(), byteCountText(all)) + frees;
    return QStringLiteral("%1 of %2 ticked · %3 of %4")
               .arg(QLocale(QLocale::English).toString(number), countText(), byteCountText(ticked),
                    byteCountText(all)) +
           frees;
}

QString FoundItems::detailOf(int item) const
{
    return byteCountText(sizes.at(item));
}

void FoundItems::order(QList<int> &shown) const
{
    if (sorted)
        std::ranges::stable_sort(shown, std::greater(), [this](int item) { return sizes.at(item); });
}

} // namespace tidlo
