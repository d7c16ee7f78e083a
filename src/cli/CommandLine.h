#pragma once

#include "cli/Command.h"

#include <QStringList>

namespace tidlo {

/// Runs the command that \a arguments name, the program's own name left out, and returns the exit status. Help and
/// version go to standard output; a wrong command line gets a complaint and a usage line on standard error.
ExitStatus runCommandLine(const QStringList &arguments, CommandContext &context);

} // namespace tidlo
