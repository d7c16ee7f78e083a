#include "cli/AskedMove.h"
#include "cli/CleanupOutcome.h"
#include "cli/CleanupSelection.h"
#include "cli/CommandHelp.h"
#include "cli/Commands.h"
#include "cli/FindingsText.h"
#include "cli/Output.h"
#include "cli/ProgressLine.h"
#include "cli/ScanOptions.h"
#include "cli/StopOnSignal.h"
#include "cli/Terminal.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tidlo {

namespace {

struct RiskWord
{
    QLatin1StringView word;
    CleanupRisk risk;
};

constexpr std::array riskWords{
    RiskWord{QLatin1StringView("safe"), CleanupRisk::safe},
    RiskWord{QLatin1StringView("rebuildable"), CleanupRisk::rebuildable},
    RiskWord{QLatin1StringView("review"), CleanupRisk::review},
};

/// The request of the person.
struct CleanWishes
{
    QList<CleanupRisk> risks;
    ListedPaths paths = ListedPaths::none;
    MoveWishes move;
};

/// Nothing if a word is not a risk.
std::optional<CleanWishes> cleanWishes(const QCommandLineParser &options)
{
    CleanWishes wishes{.risks = {},
                       .paths = options.isSet(QStringLiteral("paths")) ? ListedPaths::all : ListedPaths::none,
                       .move = moveWishes(options)};
    for (const QString &word : options.values(QStringLiteral("risk"))) {
        const auto row = std::ranges::find(riskWords, word, &RiskWord::word);
        if (row == riskWords.end())
            return std::nullopt;
        wishes.risks.append(row->risk);
    }
    return wishes;
}

QString selectionText(const CleanupSelection &selection, const ScanResult &result, const CleanWishes &wishes,
                      const Terminal &terminal)
{
    const QString forecast = forecastText(forecastOf(result, selection.candidates));
    const QString frees = (forecast.isEmpty() ? QString() : QStringLiteral("Emptying the Trash %1.\n").arg(forecast)) +
                          unreadText(result.unread);
    const QString findings = selection.candidates.isEmpty()
                                 ? QStringLiteral("Nothing is selected.\n")
                                 : findingsText(selection.candidates, wishes.paths, terminal) + frees + u'\n';
    const QString dryRun = QStringLiteral("Dry run: %1 would be moved to the Trash.\n").arg(selection.text());
    return wishes.move.dryRun ? findings + dryRun : findings;
}

bool mayBeMoved(const CleanupSelection &selection, const MoveWishes &wishes)
{
    if (wishes.dryRun || selection.paths.isEmpty())
        return false;
    return !wishes.question || agreesTo(QStringLiteral("Move %1 to the Trash?").arg(selection.text()));
}

CleanupOutcome moveToTrash(const CleanupSelection &selection, const QList<FilePath> &spared, CommandContext &context)
{
    ProgressLine line;
    const StopOnSignal stop([&line] { line.show(QStringLiteral("Stopping after the current item")); });
    if (!selection.paths.isEmpty())
        line.show(QStringLiteral("Moving %1 to the Trash").arg(selection.text()));
    const Cleanup cleanup = QCoro::waitFor(context.scanner.moveToTrash(selection.candidates, spared, stop.token()));
    return {.cleanup = cleanup, .items = selection.paths.size(), .signal = stop.signal()};
}

ExitStatus runClean(const QCommandLineParser &options, CommandContext &context)
{
    const std::optional<CleanWishes> wishes = cleanWishes(options);
    if (!wishes)
        return reportMisuse(cleanCommand(), QStringLiteral("A risk is safe, rebuildable or review."));
    if (!canAskAsWished(wishes->move, QStringLiteral("move")))
        return ExitStatus::misused;
    if (!sparedPaths(context))
        return ExitStatus::failed;
    const std::optional<ScanResult> result = scanAsWanted(options, context);
    if (!result)
        return ExitStatus::misused;
    const CleanupSelection selection = cleanupSelection(result->snapshot.candidates, wishes->risks);
    const auto text = [&](const Terminal &terminal) { return selectionText(selection, *result, *wishes, terminal); };
    if (const ExitStatus status = showSelection(wishes->move, text); status != ExitStatus::succeeded)
        return status;
    const bool agreed = mayBeMoved(selection, wishes->move);
    const std::optional<QList<FilePath>> spared = sparedPaths(context); // It may have changed meanwhile.
    if (!spared)
        return ExitStatus::failed;
    return printOutcome(moveToTrash(agreed ? selection : CleanupSelection(), *spared, context), wishes->move);
}

} // namespace

Command cleanCommand()
{
    return {.name = "clean",
            .summary = "Move what a scan selects to the Trash, after a question.",
            .description = "Scans the home folder ($HOME), shows what is selected, asks, and moves it to the\n"
                           "Trash. Nothing is deleted: the space returns when the Trash is emptied. Ctrl-C\n"
                           "stops between two items.\n"
                           "\n"
                           "The exit status is 0 if everything was moved, 1 if something stayed, 2 if there\n"
                           "is no terminal to ask at, 130 after Ctrl-C.\n",
            .options =
                QList<CommandOption>{{"yes", "Move without a question."},
                                     {"dry-run", "Show what would be moved, and move nothing."},
                                     {"risk", "Only this risk: safe, rebuildable or review. Repeatable.", "risk"},
                                     {"paths", "List every path beneath its finding."},
                                     {"json", "Print the report as one JSON object, and nothing else."}} +
                scanOptions(),
            .run = runClean};
}

} // namespace tidlo
