#include "cli/RestoreOutcome.h"

#include "cli/AskedMove.h"

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
    return interrupted + QStringLiteral("Put back %1.\n").arg(doneText(restored, selection.items.size()));
}

QString RestoreOutcome::complaint() const
{
    return stayedText(stayed(), QStringLiteral("not put back"));
}

nlohmann::ordered_json RestoreOutcome::json() const
{
    nlohmann::ordered_json restored = nlohmann::ordered_json::array();
    for (const TrashedItem &item : restoration.restored)
        restored.push_back(item.origin.toStdString());
    nlohmann::ordered_json others = nlohmann::ordered_json::array();
    for (const ListedItem &item : selection.others)
        others.push_back(item.item.origin.toStdString());
    nlohmann::ordered_json json;
    json["restored"] = std::move(restored);
    json["stayed"] = stayedJson(stayed());
    json["others"] = std::move(others);
    return json;
}

ExitStatus RestoreOutcome::exitStatus() const
{
    return moveStatus(stayed(), signal);
}

} // namespace tidlo
