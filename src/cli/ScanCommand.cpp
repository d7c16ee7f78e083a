#include "cli/Commands.h"
#include "cli/FindingsText.h"
#include "cli/Output.h"
#include "cli/ScanOptions.h"
#include "model/ModelJson.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

namespace tidlo {

namespace {

nlohmann::ordered_json jsonOf(const ScanSnapshot &snapshot)
{
    nlohmann::ordered_json candidates = nlohmann::ordered_json::array();
    for (const CleanupCandidate &candidate : snapshot.candidates)
        candidates.push_back(toJson(candidate));
    nlohmann::ordered_json json;
    json["totals"] = toJson(snapshot.totals);
    json["candidates"] = std::move(candidates);
    return json;
}

QString textOf(const ScanSnapshot &snapshot, ListedPaths paths)
{
    const Terminal terminal = terminalAt(STDOUT_FILENO);
    const QString findings = snapshot.candidates.isEmpty()
                                 ? QStringLiteral("Nothing to clean up: this home folder is tidy.\n")
                                 : findingsText(snapshot.candidates, paths, terminal);
    return findings + u'\n' + totalsText(snapshot.totals, terminal);
}

ExitStatus runScan(const QCommandLineParser &options, CommandContext &context)
{
    const std::optional<ScanResult> result = scanAsWanted(options, context);
    if (!result)
        return ExitStatus::misused;
    if (options.isSet(QStringLiteral("json")))
        return print(jsonOf(result->snapshot));
    return print(
        textOf(result->snapshot, options.isSet(QStringLiteral("paths")) ? ListedPaths::all : ListedPaths::none));
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
