#include "cli/AskedMove.h"

#include "cli/FindingsText.h"
#include "platform/VisibleText.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tidlo {

MoveWishes moveWishes(const QCommandLineParser &options)
{
    const bool dryRun = options.isSet(QStringLiteral("dry-run"));
    return {.dryRun = dryRun,
            .question = !dryRun && !options.isSet(QStringLiteral("yes")),
            .json = options.isSet(QStringLiteral("json"))};
}

bool canAskAsWished(const MoveWishes &wishes, const QString &act)
{
    if (!wishes.question || canAsk())
        return true;
    complain(
        QStringLiteral("There is no terminal to ask at. Add --yes to %1 without a question, or --dry-run.").arg(act));
    return false;
}

ExitStatus showSelection(const MoveWishes &wishes, const std::function<QString(const Terminal &)> &textFor)
{
    if (!wishes.question && !wishes.json)
        return print(textFor(terminalAt(STDOUT_FILENO)));
    if (wishes.question || wishes.dryRun)
        writeAll(STDERR_FILENO, textFor(terminalAt(STDERR_FILENO)).toUtf8());
    return ExitStatus::succeeded;
}

QString doneText(qint64 done, qint64 all)
{
    const QString whole = countText(std::max(done, all), QStringLiteral("item"));
    return done >= all ? whole : QStringLiteral("%1 of %2").arg(QString::number(done), whole);
}

QString stayedText(const QList<StayedItem> &stayed, const QString &what)
{
    if (stayed.isEmpty())
        return {};
    QString lines = QStringLiteral("tidlo-cli: %1 %2:\n").arg(QString::number(stayed.size()), what);
    for (const StayedItem &item : stayed)
        lines += QStringLiteral("  %1\n    %2\n").arg(visibleText(item.path), visibleText(item.reason));
    return lines;
}

nlohmann::ordered_json stayedJson(const QList<StayedItem> &stayed)
{
    nlohmann::ordered_json items = nlohmann::ordered_json::array();
    for (const StayedItem &item : stayed)
        items.push_back({{"path", item.path.toStdString()}, {"reason", item.reason.toStdString()}});
    return items;
}

ExitStatus moveStatus(const QList<StayedItem> &stayed, int signal)
{
    if (signal != 0)
        return static_cast<ExitStatus>(128 + signal);
    return stayed.isEmpty() ? ExitStatus::succeeded : ExitStatus::failed;
}

} // namespace tidlo
