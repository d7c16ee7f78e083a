#include "cli/CommandHelp.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/PathArgument.h"
#include "platform/Bundle.h"

namespace tidlo {

namespace {

ExitStatus runTrashBundle(const QCommandLineParser &options, CommandContext &context)
{
    const Bundle bundle = mainBundle();
    const bool isMeant = pathOfArgument(options.value(QStringLiteral("at"))) == bundle.path;
    if (!bundle.isOurs() || !isMeant)
        return reportMisuse(trashBundleCommand(),
                            QStringLiteral("That is not the bundle that this program runs from."));
    const TrashOutcome outcome = context.files.trashItem(bundle.path);
    if (!outcome.reason.isEmpty())
        complain(outcome.reason);
    switch (outcome.kind) {
    case TrashOutcome::Kind::moved:
    case TrashOutcome::Kind::gone:
        return ExitStatus::succeeded;
    case TrashOutcome::Kind::refused:
    case TrashOutcome::Kind::anotherMoved: // The bundle has left its place; another item that is there now must not be
                                           // deleted.
        return ExitStatus::refused;
    case TrashOutcome::Kind::failed:
        return ExitStatus::failed;
    }
    Q_UNREACHABLE();
}

} // namespace

Command trashBundleCommand()
{
    return {.name = "trash-bundle",
            .summary = "",
            .description = "Moves the bundle of the application, from which this program runs, to the Trash. The\n"
                           "script that uninstalls the application uses it.\n"
                           "\n"
                           "The exit status is 0 if it is gone from its place, 1 if the system failed, 2 if the\n"
                           "path is not that of the bundle, 3 if the Trash refuses it on purpose.\n",
            .options = {{"at", "The path of the bundle, so that nothing else is moved.", "path"}},
            .run = runTrashBundle,
            .needsThread = false};
}

} // namespace tidlo
