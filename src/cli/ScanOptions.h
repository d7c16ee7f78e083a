#pragma once

#include "cli/Command.h"

namespace tidlo {

/// What can be wanted of the scan of every command that scans.
QList<CommandOption> scanOptions();

/// What is never to be suggested, as it is kept at this moment. Nothing, having complained, if that cannot be read.
std::optional<QList<FilePath>> sparedPaths(const CommandContext &context);

/// Scans as \a options say, shows the progress, and tells on standard error what was left out, because of an option or
/// because it is never to be suggested. Nothing, having complained, if they name what does not exist or cannot be
/// looked into; then nothing was scanned.
std::optional<ScanResult> scanAsWanted(const QCommandLineParser &options, CommandContext &context);

} // namespace tidlo
