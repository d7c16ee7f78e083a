#include "cli/Commands.h"
#include "cli/FindingsText.h"
#include "cli/Output.h"
#include "cli/ScanOptions.h"
#include "model/ModelJson.h"

#include <nlohmann/json.hpp>

#include <algorithm>

#include <unistd.h>

namespace tidlo {

namespace {

Forecast forecastOfSelected(const ScanResult &result)
{
    QList<CleanupCandidate> selected;
    std::ranges::copy_if(result.snapshot.candidates, std::back_inserter(selected), &CleanupCandidate::selected);
    return forecastOf(result, selected);
}

nlohmann::ordered_json forecastJson(const ScanResult &result)
{
    const Forecast forecast = forecastOfSelected(result);
    nlohmann::ordered_json unread = nlohmann::ordered_json::array();
    for (const UnreadFolder &folder : result.unread.first)
        unread.push_back({{"path", folder.path.toStdString()}, {"reason", folder.reason.toStdString()}});
    return {{"freedBytes", forecast.freed},
            {"heldByLinksBytes", forecast.heldByLinks},
            {"listedTwiceBytes", forecast.listedTwice},
            {"refusedBytes", forecast.refused},
            {"unreadableCount", result.unread.count},
            {"unreadable", std::move(unread)}};
}

nlohmann::ordered_json jsonOf(const ScanResult &result)
{
    const ScanSnapshot &snapshot = result.snapshot;
    nlohmann::ordered_json candidates = nlohmann::ordered_json::array();
    for (const CleanupCandidate &candidate : snapshot.candidates)
        candidates.push_back(toJson(candidate));
    nlohmann::ordered_json json;
    json["totals"] = toJson(snapshot.totals);
    json["candidates"] = std::move(candidates);
    json["forecast"] = forecastJson(result);
    return json;
}

QString textOf(const ScanResult &result, ListedPaths paths)
{
    const ScanSnapshot &snapshot = result.snapshot;
    const Terminal terminal = terminalAt(STDOUT_FILENO);
    const QString findings = snapshot.candidates.isEmpty()
                                 ? QStringLiteral("Nothing to clean up: this home folder is tidy.\n")
                                 : findingsText(snapshot.candidates, paths, terminal);
    const QString unread = unreadText(result.unread);
    return findings + u'\n' + totalsText(snapshot.totals, forecastOfSelected(result), terminal) +
           (unread.isEmpty() ? QString() : u'\n' + unread);
}

ExitStatus runScan(const QCommandLineParser &options, CommandContext &context)
{
    const std::optional<ScanResult> result = scanAsWanted(options, context);
    if (!result)
        return ExitStatus::misused;
    if (options.isSet(QStringLiteral("json")))
        return print(jsonOf(*result));
    return print(textOf(*result, options.isSet(QStringLiteral("paths")) ? ListedPaths::all : ListedPaths::none));
}

} // namespace

Command scanCommand()
{
    return {.name = "scan",
            .summary = "Show what could be cleaned. Changes nothing.",
            .description = "Shows what could be cleaned in the home folder ($HOME), the largest first.\n"
                           "Nothing is changed, and no file is opened.\n",
            .options = QList<CommandOption>{{"paths", "List every path beneath its finding."},
                                            {"json", "Print one JSON object, and nothing else."}} +
                       scanOptions(),
            .run = runScan};
}

} // namespace tidlo
