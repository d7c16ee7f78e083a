#include "cli/ProgressLine.h"

#include "cli/Output.h"
#include "cli/Terminal.h"
#include "model/TidloPercent.h"

#include <atomic>
#include <csignal>

#include <unistd.h>

namespace tidlo {

namespace {

constexpr char erasure[] = "\r\x1b[K";

static_assert(std::atomic<bool>::is_always_lock_free, "A signal handler reads it.");
std::atomic<bool> isShown = false;

void erase()
{
    if (isShown.exchange(false) && write(STDERR_FILENO, erasure, sizeof erasure - 1) < 0)
        return; // The terminal is gone.
}

/// The default action is restored already, and is taken when this returns.
void eraseAndEnd(int signal)
{
    erase();
    raise(signal);
}

} // namespace

ProgressLine::ProgressLine()
    : signalActions(eraseAndEnd)
{}

ProgressLine::~ProgressLine()
{
    erase();
}

void ProgressLine::show(const QString &text)
{
    const Terminal terminal = terminalAt(STDERR_FILENO);
    if (!terminal.rewritable)
        return;
    isShown = true;
    writeAll(STDERR_FILENO, erasure + text.left(terminal.columns - 1).toUtf8());
}

ScanResult scanWithProgress(FileSizeScanner &scanner, const ScanWishes &wishes)
{
    ProgressLine line;
    const auto show = [&line](double fraction, const QString &label) {
        line.show(tidloPercent(fraction).rightJustified(4) + QStringLiteral("  ") + label);
    };
    return QCoro::waitFor(scanner.scan(show, wishes));
}

} // namespace tidlo
