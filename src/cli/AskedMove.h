#pragma once

#include "cli/Output.h"
#include "cli/Terminal.h"
#include "scanner/MoveToTrash.h"

#include <QCommandLineParser>

#include <functional>

#include <unistd.h>

namespace tidlo {

// The common parts of the commands that move items: they show the items, ask, move them, and print the outcome.

/// How a move should be done.
struct MoveWishes
{
    bool dryRun = false;
    bool question = true;
    bool json = false;
};

/// The wishes of --dry-run, --yes and --json.
MoveWishes moveWishes(const QCommandLineParser &options);

/// False if a question is wished and no terminal is there to ask at; then writes a line to standard error that offers
/// to \a act without a question: "move".
bool canAskAsWished(const MoveWishes &wishes, const QString &act);

/// Shows the selection as \a textFor formats it for a terminal. Text that belongs to a question goes to standard error,
/// and with JSON everything except the outcome.
ExitStatus showSelection(const MoveWishes &wishes, const std::function<QString(const Terminal &)> &textFor);

/// "3 items" if all are done, else "2 of 3 items".
QString doneText(qint64 done, qint64 all);

/// For people, in whole lines: how many items are \a what, then each with its reason. Empty if there are none.
QString stayedText(const QList<StayedItem> &stayed, const QString &what);

nlohmann::ordered_json stayedJson(const QList<StayedItem> &stayed);

/// The exit status of a move after which \a stayed were left; \a signal interrupted it, 0 for none.
ExitStatus moveStatus(const QList<StayedItem> &stayed, int signal);

/// Prints the \a outcome of a move, writes to standard error what stayed, and returns the exit status.
template <typename Outcome>
ExitStatus printOutcome(const Outcome &outcome, const MoveWishes &wishes)
{
    const ExitStatus printed = wishes.json ? print(outcome.json()) : print(outcome.text());
    writeAll(STDERR_FILENO, outcome.complaint().toUtf8());
    return printed == ExitStatus::succeeded ? outcome.exitStatus() : printed;
}

} // namespace tidlo
