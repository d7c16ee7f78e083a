#include "cli/TerminalSession.h"

#include "support/OpenPty.h"
#include "support/Patience.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tidlo {

TerminalSession::TerminalSession(const TemporaryHome &home, const QByteArrayList &arguments, int columns,
                                 CliSetup setup)
{
    int ours = -1;
    int theirs = -1;
    winsize size{.ws_row = 50, .ws_col = static_cast<unsigned short>(columns), .ws_xpixel = 0, .ws_ypixel = 0};
    if (openpty(&ours, &theirs, nullptr, nullptr, &size) != 0)
        qFatal("There is no terminal to be had.");
    terminal = Descriptor(ours);
    const Descriptor otherEnd(theirs);
    setup.inChild = [theirs, ours, more = setup.inChild] {
        ::close(ours);
        setsid();
        ioctl(theirs, TIOCSCTTY, 0);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            dup2(theirs, stream);
        ::close(theirs);
        if (more)
            more();
    };
    prepareCli(process, home, arguments, setup);
    process.start();
    if (!process.waitForStarted())
        qFatal("tidlo-cli cannot be started.");
}

TerminalSession::~TerminalSession()
{
    process.kill();
    process.waitForFinished();
}

bool TerminalSession::readMore()
{
    pollfd readable{.fd = terminal.get(), .events = POLLIN, .revents = 0};
    if (poll(&readable, 1, patience) != 1) {
        ADD_FAILURE() << "tidlo-cli hangs, having written: " << written.toStdString();
        return false;
    }
    std::array<char, 4096> buffer{};
    const ssize_t count = read(terminal.get(), buffer.data(), buffer.size());
    if (count > 0)
        written.append(buffer.data(), count);
    return count > 0; // EIO: the program has ended.
}

bool TerminalSession::shows(const QByteArray &text)
{
    while (!written.contains(text)) {
        if (!readMore())
            return false;
    }
    return true;
}

void TerminalSession::type(const QByteArray &keys)
{
    EXPECT_EQ(write(terminal.get(), keys.constData(), keys.size()), keys.size());
}

void TerminalSession::send(int signal)
{
    EXPECT_EQ(kill(static_cast<pid_t>(process.processId()), signal), 0);
}

CliRun TerminalSession::end()
{
    while (readMore())
        continue;
    EXPECT_TRUE(process.waitForFinished(patience)) << "tidlo-cli hangs";
    CliRun run = endOf(process);
    run.output = written;
    return run;
}

QByteArray screenOf(const QByteArray &written)
{
    QByteArrayList lines{QByteArray()};
    qsizetype column = 0;
    for (qsizetype i = 0; i < written.size(); ++i) {
        const char character = written[i];
        if (character == '\x1b') {
            const qsizetype start = i;
            while (++i < written.size() && QByteArrayView("mK").indexOf(written[i]) == -1)
                continue;
            if (written.mid(start, i - start + 1) == "\x1b[K")
                lines.last().truncate(column);
        } else if (character == '\r') {
            column = 0;
        } else if (character == '\n') {
            lines.append(QByteArray());
            column = 0;
        } else {
            lines.last().replace(column++, 1, QByteArray(1, character));
        }
    }
    return lines.join('\n');
}

} // namespace tidlo
