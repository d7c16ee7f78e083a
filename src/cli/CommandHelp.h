#pragma once

#include "cli/Command.h"

/// The names of an option without dashes, the short one first.
QStringList optionNames(const CommandOption &option);

/// "Usage: tidlo-cli scan [--paths] [--json]" and a line feed.
QString usageLine(const Command &command);

/// Usage, description and options of a command; of the program itself also the \a commands it has.
QString helpText(const Command &command, const QList<Command> &commands = {});
