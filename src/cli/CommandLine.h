#pragma once

#include "cli/Command.h"

#include <QStringList>

namespace tidlo {

/// Runs the command in \a arguments, which do not include the program's own name, and returns the exit status. Help and
/// version go to standard output; a wrong command line causes a message and a usage line on standard error.
ExitStatus runCommandLine(const QStringList &arguments, CommandContext &context);

} // namespace tidlo
