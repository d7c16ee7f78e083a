#include "scanner/Forecast.h"

#include "model/CheckedSum.h"
#include "platform/ByteCountFormatter.h"

#include <algorithm>

namespace tidlo {

namespace {

struct Item
{
    FilePath path;
    FilePath place;
    qint64 bytes = 0;
};

/// The paths of \a chosen, in order, with the sizes that the scan found.
QList<Item> itemsOf(const ScanResult &result, const QList<CleanupCandidate> &chosen)
{
    QList<Item> items;
    for (const CleanupCandidate &candidate : chosen) {
        const auto scanned = std::ranges::find(result.snapshot.candidates, candidate.id, &CleanupCandidate::id);
        if (scanned == result.snapshot.candidates.end())
            continue;
        const QSet<FilePath> wanted(candidate.paths.begin(), candidate.paths.end());
        const QList<qint64> sizes = result.sizes.value(candidate.id);
        for (qsizetype at = 0; at < scanned->paths.size(); ++at) {
            const FilePath &path = scanned->paths.at(at);
            if (wanted.contains(path))
                items.append({.path = path, .place = result.placeOf(path), .bytes = sizes.value(at)});
        }
    }
    return items;
}

/// The names of one inode that were met.
struct Names
{
    quint32 all = 0;
    quint32 met = 0;
    qint64 bytes = 0; ///< Of all names together.
    qint64 once = 0;
};

/// The bytes of \a items that other links hold; none of the items lies in another.
qint64 heldIn(const QList<Item> &items, const ScanResult &result)
{
    QHash<std::pair<quint64, quint64>, Names> inodes;
    for (const Item &item : items) {
        for (const LinkedFile &file : result.linked.value(item.path)) {
            Names &names = inodes[{file.device, file.inode}];
            names.all = std::max(names.all, file.links);
            ++names.met;
            names.bytes = checkedSum(names.bytes, file.bytes);
            names.once = file.bytes;
        }
    }
    qint64 held = 0;
    for (const Names &names : std::as_const(inodes))
        held = checkedSum(held, names.met < names.all ? names.bytes : names.bytes - names.once);
    return held;
}

} // namespace

qint64 Forecast::recoverable() const
{
    return checkedSum(checkedSum(freed, heldByLinks), checkedSum(listedTwice, refused));
}

Forecast forecastOf(const ScanResult &result, const QList<CleanupCandidate> &chosen)
{
    Forecast forecast{.isAtMost = result.sharesBlocks};
    QList<Item> items = itemsOf(result, chosen);
    items.removeIf([&](const Item &item) {
        const bool isRefused = result.refused.contains(item.path);
        forecast.refused = checkedSum(forecast.refused, isRefused ? item.bytes : 0);
        return isRefused;
    });
    PlaceSet all;
    for (const Item &item : std::as_const(items))
        all.insert(item.place);
    QSet<FilePath> known;
    items.removeIf([&](const Item &item) {
        const FilePath folder = item.place.left(item.place.lastIndexOf('/'));
        const bool isRepeated = known.contains(item.place) || all.hasOneAround(folder);
        known.insert(item.place);
        forecast.listedTwice = checkedSum(forecast.listedTwice, isRepeated ? item.bytes : 0);
        return isRepeated;
    });
    qint64 counted = 0;
    for (const Item &item : std::as_const(items))
        counted = checkedSum(counted, item.bytes);
    forecast.heldByLinks = std::min(heldIn(items, result), counted);
    forecast.freed = counted - forecast.heldByLinks;
    return forecast;
}

QString freedText(const Forecast &forecast)
{
    return QStringLiteral("frees %1 %2")
        .arg(forecast.isAtMost ? QStringLiteral("at most") : QStringLiteral("about"), byteCountText(forecast.freed));
}

QStringList unfreedTexts(const Forecast &forecast)
{
    struct Part
    {
        qint64 bytes;
        const char *text;
    };
    QStringList parts;
    for (const Part &part :
         {Part{forecast.heldByLinks, "is linked from elsewhere"}, Part{forecast.listedTwice, "is listed twice"},
          Part{forecast.refused, "cannot be moved"}}) {
        if (part.bytes > 0)
            parts.append(byteCountText(part.bytes) + u' ' + QLatin1StringView(part.text));
    }
    return parts;
}

QString forecastText(const Forecast &forecast)
{
    const QStringList unfreed = unfreedTexts(forecast);
    return unfreed.isEmpty() ? QString()
                             : freedText(forecast) + QStringLiteral(": ") + unfreed.join(QStringLiteral(", "));
}

} // namespace tidlo
