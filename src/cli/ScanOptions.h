#pragma once

#include "cli/Command.h"

namespace tidlo {

/// What can be wanted of the scan of every command that scans.
QList<CommandOption> scanOptions();

/// Scans as \a options want it, shows the progress, and tells on standard error what was left out since that was
/// wanted. Nothing, having complained, if they name what does not exist or cannot be looked into; then nothing was
/// scanned.
std::optional<ScanResult> scanAsWanted(const QCommandLineParser &options, CommandContext &context);

} // namespace tidlo
