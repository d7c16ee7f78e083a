#include "cli/TrashText.h"

#include "cli/TextTable.h"
#include "platform/ByteCountFormatter.h"
#include "platform/VisibleText.h"

#include <QDateTime>

namespace tidlo {

QString trashText(const QList<ListedItem> &items, const Terminal &terminal)
{
    TextTable table{.columns = {{QStringLiteral("Moved")},
                                {QStringLiteral("Size"), TableColumn::Alignment::right},
                                {QStringLiteral("Where it was")}},
                    .rows = {}};
    for (const ListedItem &item : items)
        table.rows.append(
            {{timeText(item), Ink::faint}, {byteCountText(item.bytes), Ink::strong}, {visibleText(item.item.origin)}});
    return table.lines(terminal.colour).join(u'\n') + u'\n';
}

QString timeText(const ListedItem &item)
{
    if (!item.moved)
        return {};
    const auto seconds = std::chrono::floor<std::chrono::seconds>(*item.moved).time_since_epoch().count();
    return QDateTime::fromSecsSinceEpoch(seconds).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

} // namespace tidlo
