#include "ui/screens/StayedItems.h"

#include "platform/VisibleText.h"

namespace tidlo {

void StayedItems::inspect()
{
    QList<FilePath> paths;
    reasons.clear();
    for (const StayedItem &item : shownApp().stayed()) {
        paths.append(item.path);
        reasons.append(visibleText(item.reason));
    }
    show(QStringLiteral("What stayed"), paths);
}

void StayedItems::clear()
{
    reasons.clear();
    ItemList::clear();
}

QString StayedItems::summary() const
{
    return QStringLiteral("%1 could not be moved to the Trash").arg(countText());
}

QString StayedItems::detailOf(int item) const
{
    return reasons.at(item);
}

} // namespace tidlo
