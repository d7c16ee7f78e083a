#pragma once

#include "cli/Command.h"

namespace tidlo {

/// The names of an option without dashes, the short one first.
QStringList optionNames(const CommandOption &option);

/// "Usage: tidlo-cli scan [--paths] [--json]" and a line feed; wrapped at 80 columns if necessary.
QString usageLine(const Command &command);

/// Prints \a complaint about an option's value and the usage line; returns the exit status for that.
ExitStatus reportMisuse(const Command &command, const QString &complaint);

/// Usage, description and options of a command; for the program itself also its \a commands.
QString helpText(const Command &command, const QList<Command> &commands = {});

} // namespace tidlo
