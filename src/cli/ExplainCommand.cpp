#include "ai/GeminiClient.h"
#include "ai/Prompt.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/ProgressLine.h"
#include "cli/ScanOptions.h"
#include "platform/UserDefaults.h"
#include "platform/VisibleText.h"

namespace tidlo {

namespace {

/// Prints the whole text, with characters that could act on the terminal escaped, and with a line feed at its end.
ExitStatus printText(const QString &text)
{
    const QString visible = visibleText(text);
    return print(visible.endsWith(u'\n') ? visible : visible + u'\n');
}

std::optional<QString> explanationOf(const QList<CleanupCandidate> &candidates)
{
    ProgressLine line;
    line.show(QStringLiteral("Asking for an explanation"));
    return QCoro::waitFor(GeminiClient::explain(candidates));
}

ExitStatus runExplain(const QCommandLineParser &options, CommandContext &context)
{
    const std::optional<ScanResult> result = scanAsWanted(options, context);
    if (!result)
        return ExitStatus::misused;
    const QList<CleanupCandidate> candidates = explainedCandidates(result->snapshot.candidates);
    if (options.isSet(QStringLiteral("prompt")))
        return printText(promptFor(candidates));
    if (!context.defaults.boolean(UserDefaults::explanations, true))
        complain(QStringLiteral("Explanations are switched off in the window; this command asks anyway."));
    const std::optional<QString> explanation = explanationOf(candidates);
    if (explanation && !GeminiClient::isError(*explanation))
        return printText(*explanation);
    complain(explanation.value_or(QStringLiteral("No explanation came back.")));
    return ExitStatus::failed;
}

} // namespace

Command explainCommand()
{
    return {.name = "explain",
            .summary = "Explain what could be cleaned, with the help of an AI service.",
            .description = "Scans the home folder ($HOME), sends a description of the eight largest\n"
                           "findings to an AI service, and shows its answer. This is what it sends: titles,\n"
                           "categories, risks, sizes, the scan's own explanations, up to eight paths of\n"
                           "each, and an identifier of this machine. No file is opened or sent. It asks\n"
                           "even if explanations are switched off in the window, and then says so. The\n"
                           "exit status is 1 if no explanation came back.\n",
            .options = QList<CommandOption>{{"prompt", "Show what would be sent, and send nothing."}} + scanOptions(),
            .run = runExplain};
}

} // namespace tidlo
