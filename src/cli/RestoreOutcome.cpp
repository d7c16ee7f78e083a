#include "cli/RestoreOutcome.h"

#include "cli/FindingsText.h"
#include "platform/VisibleText.h"

#include <nlohmann/json.hpp>

namespace tidlo {

QList<StayedItem> RestoreOutcome::stayed() const
{
    QList<StayedItem> all = restoration.stayed;
    for (const FilePath &place : selection.missing)
        all.append({.path = place, .reason = QStringLiteral("The Trash holds nothing that was there.")});
    return all;
}

QString RestoreOutcome::text() const
{
    const QString interrupted = signal == 0 ? QString() : QStringLiteral("Interrupted. ");
    const qsizetype restored = restoration.restored.size();
    if (restored == 0)
        return interrupted + QStringLiteral("Nothing was put back.\n");
    const QString all = countText(selection.items.size(), QStringLiteral("item"));
    const bool restoredAll = restored == selection.items.size();
    const QString count = restoredAll ? all : QStringLiteral("%1 of %2").arg(QString::number(restored), all);
    return interrupted + QStringLiteral("Put back %1.\n").arg(count);
}

QString RestoreOutcome::complaint() const
{
    const QList<StayedItem> items = stayed();
    if (items.isEmpty())
        return {};
    QString lines = QStringLiteral("tidlo-cli: %1 not put back:\n").arg(items.size());
    for (const StayedItem &item : items)
        lines += QStringLiteral("  %1\n    %2\n").arg(visibleText(item.path), visibleText(item.reason));
    return lines;
}

nlohmann::ordered_json RestoreOutcome::json() const
{
    nlohmann::ordered_json restored = nlohmann::ordered_json::array();
    for (const TrashedItem &item : restoration.restored)
        restored.push_back(item.origin.toStdString());
    nlohmann::ordered_json others = nlohmann::ordered_json::array();
    for (const ListedItem &item : selection.others)
        others.push_back(item.item.origin.toStdString());
    nlohmann::ordered_json left = nlohmann::ordered_json::array();
    for (const StayedItem &item : stayed())
        left.push_back({{"path", item.path.toStdString()}, {"reason", item.reason.toStdString()}});
    nlohmann::ordered_json json;
    json["restored"] = std::move(restored);
    json["stayed"] = std::move(left);
    json["others"] = std::move(others);
    return json;
}

ExitStatus RestoreOutcome::exitStatus() const
{
    if (signal != 0)
        return static_cast<ExitStatus>(128 + signal);
    return stayed().isEmpty() ? ExitStatus::succeeded : ExitStatus::failed;
}

} // namespace tidlo
