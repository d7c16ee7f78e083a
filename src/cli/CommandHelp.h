#pragma once

#include "cli/Command.h"

namespace tidlo {

/// The names of an option without dashes, the short one first.
QStringList optionNames(const CommandOption &option);

/// "Usage: tidlo-cli scan [--paths] [--json]" and a line feed; further lines of 80 columns at most where it needs them.
QString usageLine(const Command &command);

/// Complains about an option's value and shows how the command is used; returns the exit status for that.
ExitStatus reportMisuse(const Command &command, const QString &complaint);

/// Usage, description and options of a command; of the program itself also the \a commands it has.
QString helpText(const Command &command, const QList<Command> &commands = {});

} // namespace tidlo
