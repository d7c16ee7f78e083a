#include "ui/screens/FoundItems.h"

#include "model/CheckedSum.h"
#include "platform/ByteCountFormatter.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <numeric>

namespace tidlo {

void FoundItems::inspect(const QUuid &id)
{
    const QList<CleanupCandidate> candidates = shownApp().candidates();
    const auto found = std::ranges::find(candidates, id, &CleanupCandidate::id);
    const CleanupCandidate candidate = found == candidates.end() ? CleanupCandidate() : *found;
    sizes = shownApp().sizesOf(candidate.id);
    sizes.resize(candidate.paths.size());
    show(visibleText(candidate.title), candidate.paths);
}

void FoundItems::clear()
{
    sizes.clear();
    ItemList::clear();
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
    const qint64 sum = std::accumulate(sizes.begin(), sizes.end(), qint64(0), checkedSum);
    return QStringLiteral("%1 · %2").arg(countText(), byteCountText(sum));
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
