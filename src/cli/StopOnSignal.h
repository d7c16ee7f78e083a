#pragma once

#include "platform/Descriptor.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <functional>
#include <optional>
#include <stop_token>

namespace tidlo {

/// Handles the signals that ask the program to end, SIGINT, SIGTERM and SIGHUP, while it exists; afterwards their
/// former actions are restored. An ignored signal stays ignored, as nohup needs it.
class SignalActions final
{
public:
    /// \a handler is called once for each signal, with the default action restored, so that a second signal ends the
    /// program at once. It may run on any thread and must be async-signal-safe.
    explicit SignalActions(void (*handler)(int signal));
    ~SignalActions();
    SignalActions(const SignalActions &) = delete;
    SignalActions &operator=(const SignalActions &) = delete;

private:
    static constexpr std::array signals{SIGINT, SIGTERM, SIGHUP};

    std::array<struct sigaction, signals.size()> former{};
};

/// While it exists, the first Ctrl-C (or SIGTERM, SIGHUP) requests a stop instead of ending the program; a second one
/// ends it. The event loop of the thread that made this object must run. One at a time.
class StopOnSignal final
{
public:
    /// \a whenRequested is called on that thread after a stop was requested.
    explicit StopOnSignal(std::function<void()> whenRequested);
    ~StopOnSignal();
    StopOnSignal(const StopOnSignal &) = delete;
    StopOnSignal &operator=(const StopOnSignal &) = delete;

    std::stop_token token() const { return source.get_token(); }
    /// The signal that requested the stop; 0 if none did.
    int signal() const { return received; }

private:
    void receive();

    Pipe pipe = openPipe();
    QSocketNotifier notifier;
    std::function<void()> stopRequested;
    std::stop_source source;
    int received = 0;
    std::optional<SignalActions> signalActions; ///< Set only once the handler can write to the pipe.
};

} // namespace tidlo
