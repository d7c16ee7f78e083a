#pragma once

#include "cli/StopOnSignal.h"
#include "scanner/FileSizeScanner.h"

#include <QString>

namespace tidlo {

/// One line on standard error that shows what is being done, if that is a terminal. It is erased when this object is
/// destroyed, and when a signal ends the program. One at a time.
class ProgressLine final
{
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine &) = delete;
    ProgressLine &operator=(const ProgressLine &) = delete;

    /// Replaces the former text; cut to the terminal's width.
    void show(const QString &text);

private:
    SignalActions signalActions;
};

/// Scans with \a wishes, and shows the current step on standard error if that is a terminal. An interruption ends the
/// program by its signal: a scan changes nothing.
ScanResult scanWithProgress(FileSizeScanner &scanner, const ScanWishes &wishes);

} // namespace tidlo
