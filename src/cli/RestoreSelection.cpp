#include "cli/RestoreSelection.h"

#include "cli/FindingsText.h"
#include "model/CheckedSum.h"
#include "platform/ByteCountFormatter.h"
#include "platform/Paths.h"
#include "platform/Places.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace tidlo {

namespace {

/// The number of seconds in one \a unit.
qint64 secondsOf(const QString &unit)
{
    constexpr qint64 minute = 60;
    constexpr qint64 hour = 60 * minute;
    return unit == QStringLiteral("min") ? minute : unit == QStringLiteral("h") ? hour : 24 * hour;
}

} // namespace

std::optional<FileTime> momentOf(const QString &word, const QDateTime &now)
{
    static const QRegularExpression span(QStringLiteral("^([0-9]{1,6})(min|h|d)\\z"));
    QDateTime moment = QDateTime::fromString(word, Qt::ISODate);
    if (const QRegularExpressionMatch match = span.match(word); match.hasMatch())
        moment = now.addSecs(-match.captured(1).toLongLong() * secondsOf(match.captured(2)));
    else if (word == QStringLiteral("today"))
        moment = now.date().startOfDay();
    return moment.isValid() ? std::optional(fileTime(moment.toSecsSinceEpoch(), 0)) : std::nullopt;
}

QString RestoreSelection::text() const
{
    qint64 bytes = 0;
    for (const ListedItem &item : items)
        bytes = checkedSum(bytes, item.bytes);
    return QStringLiteral("%1 (%2)").arg(countText(items.size(), QStringLiteral("item")), byteCountText(bytes));
}

RestoreSelection restoreSelection(const QList<ListedItem> &listed, const QList<FilePath> &places)
{
    RestoreSelection selection{.items = {}, .others = {}, .missing = places};
    PlaceFinder finder;
    QSet<FilePath> taken;
    for (const ListedItem &each : listed) {
        const FilePath origin = finder.placeOf(each.item.origin);
        const auto holdsIt = [&](const FilePath &place) { return isAtOrBelow(origin, place); };
        if (!places.isEmpty() && std::ranges::none_of(places, holdsIt))
            continue;
        selection.missing.removeIf(holdsIt);
        (taken.contains(origin) ? selection.others : selection.items).append(each);
        taken.insert(origin);
    }
    std::ranges::stable_sort(selection.items, {}, [](const ListedItem &each) { return each.item.origin; });
    return selection;
}

} // namespace tidlo
