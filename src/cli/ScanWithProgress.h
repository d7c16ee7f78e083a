#pragma once

#include "scanner/FileSizeScanner.h"

namespace tidlo {

/// Scans and tells on standard error, where that is a terminal, which step is under way. An interruption ends the
/// program by the signal: a scan changes nothing.
ScanSnapshot scanWithProgress(FileSizeScanner &scanner);

} // namespace tidlo
