#pragma once

#include "cli/CliRun.h"
#include "platform/Descriptor.h"

namespace tidlo {

/// tidlo-cli at a pseudo-terminal, where a test types and reads.
class TerminalSession final
{
public:
    /// Starts it at a terminal that is \a columns wide. In the child, \a setup runs after the terminal has become the
    /// three standard streams.
    TerminalSession(const TemporaryHome &home, const QByteArrayList &arguments, int columns, CliSetup setup = {});
    ~TerminalSession();
    TerminalSession(const TerminalSession &) = delete;
    TerminalSession &operator=(const TerminalSession &) = delete;

    /// Waits until \a text has been written, or the program has ended without it.
    bool shows(const QByteArray &text);
    void type(const QByteArray &keys);
    void send(int signal);

    /// Waits for the end. The output is everything that was written to the terminal, including errors.
    CliRun end();

private:
    bool readMore();

    QProcess process;
    Descriptor terminal;
    QByteArray written;
};

/// The screen after \a written was sent to a terminal: rewritten lines only once, without colours.
QByteArray screenOf(const QByteArray &written);

} // namespace tidlo
