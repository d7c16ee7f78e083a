#pragma once

#include "cli/CliRun.h"
#include "platform/Descriptor.h"

namespace tidlo {

/// tidlo-cli at a terminal of its own, where a test types and reads.
class TerminalSession final
{
public:
    /// Starts it at a terminal that is \a columns wide. What \a setup does in the child comes after the terminal has
    /// taken the three standard streams.
    TerminalSession(const TemporaryHome &home, const QByteArrayList &arguments, int columns, CliSetup setup = {});
    ~TerminalSession();
    TerminalSession(const TerminalSession &) = delete;
    TerminalSession &operator=(const TerminalSession &) = delete;

    /// Waits until \a text has been written, or the program has ended without it.
    bool shows(const QByteArray &text);
    void type(const QByteArray &keys);
    void send(int signal);

    /// Waits for the end. The output is everything that was written to the terminal, errors too.
    CliRun end();

private:
    bool readMore();

    QProcess process;
    Descriptor terminal;
    QByteArray written;
};

/// What a person sees of what was written to a terminal: lines rewritten, colours left out.
QByteArray screenOf(const QByteArray &written);

} // namespace tidlo
