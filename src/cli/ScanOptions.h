#pragma once

#include "cli/Command.h"

namespace tidlo {

/// The options of every command that scans.
QList<CommandOption> scanOptions();

/// The paths that are never to be suggested, as they are stored now. Nothing, after an error message, if they cannot be
/// read.
std::optional<QList<FilePath>> sparedPaths(const CommandContext &context);

/// Scans with the given \a options, shows the progress, and lists on standard error what was left out, because of an
/// option or because it is never to be suggested. Nothing, after an error message, if a path does not exist or cannot
/// be searched; then nothing was scanned.
std::optional<ScanResult> scanAsWanted(const QCommandLineParser &options, CommandContext &context);

} // namespace tidlo
