#pragma once

#include <array>
#include <csignal>

namespace tidlo {

/// Handles the signals by which a person or the system asks the program to end, SIGINT, SIGTERM and SIGHUP, while it
/// exists; then they do again what they did before. What is ignored stays ignored, as nohup wants it.
class SignalActions final
{
public:
    /// \a handler is called once for each signal, with the default action restored, so that a second signal ends the
    /// program at once. It may run on any thread and may do only what is safe in a signal handler.
    explicit SignalActions(void (*handler)(int signal));
    ~SignalActions();
    SignalActions(const SignalActions &) = delete;
    SignalActions &operator=(const SignalActions &) = delete;

private:
    static constexpr std::array signals{SIGINT, SIGTERM, SIGHUP};

    std::array<struct sigaction, signals.size()> former{};
};

} // namespace tidlo
