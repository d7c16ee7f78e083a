#pragma once

#include "cli/Output.h"
#include "cli/Terminal.h"
#include "scanner/MoveToTrash.h"

#include <QCommandLineParser>

#include <functional>

#include <unistd.h>

namespace tidlo {

// What the commands that move something have in common: they show it, ask, move it, and tell what came of that.

/// How a move is to be gone about.
struct MoveWishes
{
    bool dryRun = false;
    bool question = true;
    bool json = false;
};

/// As --dry-run, --yes and --json say.
MoveWishes moveWishes(const QCommandLineParser &options);

/// Whether somebody can be asked who is to be; complains if not. \a act is what is done without a question then:
/// "move".
bool canAskAsWished(const MoveWishes &wishes, const QString &act);

/// Shows the selection, as \a textFor tells it at a terminal. What belongs to a question goes to standard error, and so
/// does all that is not the outcome if that is JSON.
ExitStatus showSelection(const MoveWishes &wishes, const std::function<QString(const Terminal &)> &textFor);

/// "3 items" if all are done, else "2 of 3 items".
QString doneText(qint64 done, qint64 all);

/// For a person, in whole lines: that so many are \a what, and each with its reason. Empty if there are none.
QString stayedText(const QList<StayedItem> &stayed, const QString &what);

nlohmann::ordered_json stayedJson(const QList<StayedItem> &stayed);

/// How a move ended that left \a stayed and that \a signal interrupted, 0 for none.
ExitStatus moveStatus(const QList<StayedItem> &stayed, int signal);

/// Prints the \a outcome of a move, complains of what stayed, and gives the exit status.
template <typename Outcome>
ExitStatus printOutcome(const Outcome &outcome, const MoveWishes &wishes)
{
    const ExitStatus printed = wishes.json ? print(outcome.json()) : print(outcome.text());
    writeAll(STDERR_FILENO, outcome.complaint().toUtf8());
    return printed == ExitStatus::succeeded ? outcome.exitStatus() : printed;
}

} // namespace tidlo
