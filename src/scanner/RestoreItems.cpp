#include "scanner/RestoreItems.h"

#include <algorithm>

namespace tidlo {

Restoration restoreItems(FileManager &files, QList<TrashedItem> items, const std::function<bool()> &stopRequested)
{
    std::ranges::stable_sort(items, {}, &TrashedItem::origin); // A folder comes before what lies in it.
    const QList<TrashOutcome> outcomes = files.restoreItems(items, stopRequested);
    Restoration restoration;
    for (qsizetype at = 0; at < items.size(); ++at) {
        if (at < outcomes.size() && outcomes[at].kind == TrashOutcome::Kind::moved) {
            restoration.restored.append(items[at]);
            continue;
        }
        restoration.left.append(items[at]);
        if (at >= outcomes.size())
            continue;
        const bool isGone = outcomes[at].kind == TrashOutcome::Kind::gone;
        restoration.stayed.append(
            {.path = items[at].origin,
             .reason = isGone ? QStringLiteral("It is no longer in the Trash.") : outcomes[at].reason});
    }
    return restoration;
}

} // namespace tidlo
