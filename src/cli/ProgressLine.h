#pragma once

#include "cli/StopOnSignal.h"
#include "scanner/FileSizeScanner.h"

#include <QString>

namespace tidlo {

/// One line on standard error that tells what is being done, where that is a terminal. It is gone when this object is,
/// and also when a signal ends the program. One at a time.
class ProgressLine final
{
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine &) = delete;
    ProgressLine &operator=(const ProgressLine &) = delete;

    /// Replaces what was shown before; cut to the terminal's width.
    void show(const QString &text);

private:
    SignalActions signalActions;
};

/// Scans as \a wishes say and tells on standard error, where that is a terminal, which step is under way. An
/// interruption ends the program by the signal: a scan changes nothing.
ScanResult scanWithProgress(FileSizeScanner &scanner, const ScanWishes &wishes);

} // namespace tidlo
