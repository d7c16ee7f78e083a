#include "cli/StopOnSignal.h"

#include <atomic>
#include <cerrno>

#include <unistd.h>

namespace tidlo {

namespace {

static_assert(std::atomic<int>::is_always_lock_free, "A signal handler reads it.");
std::atomic<int> wakeUp = -1; ///< The writing end of the pipe.

void passOn(int signal)
{
    const int formerError = errno;
    const auto byte = static_cast<unsigned char>(signal);
    if (write(wakeUp, &byte, 1) != 1)
        raise(signal); // Nobody would notice the signal, so it ends the program.
    errno = formerError;
}

} // namespace

SignalActions::SignalActions(void (*handler)(int signal))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    for (size_t i = 0; i < signals.size(); ++i) {
        sigaction(signals[i], nullptr, &former[i]);
        if (former[i].sa_handler != SIG_IGN)
            sigaction(signals[i], &action, nullptr);
    }
}

SignalActions::~SignalActions()
{
    for (size_t i = 0; i < signals.size(); ++i)
        sigaction(signals[i], &former[i], nullptr);
}

StopOnSignal::StopOnSignal(std::function<void()> whenRequested)
    : notifier(pipe.readEnd.get(), QSocketNotifier::Read)
    , stopRequested(std::move(whenRequested))
{
    wakeUp = pipe.writeEnd.get();
    signalActions.emplace(passOn);
    QObject::connect(&notifier, &QSocketNotifier::activated, [this] { receive(); });
}

StopOnSignal::~StopOnSignal() = default;

void StopOnSignal::receive()
{
    unsigned char signal = 0;
    if (read(pipe.readEnd.get(), &signal, 1) != 1)
        return;
    received = signal;
    source.request_stop();
    stopRequested();
}

} // namespace tidlo
