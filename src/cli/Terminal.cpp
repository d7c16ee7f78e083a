#include "cli/Terminal.h"

#include "cli/Output.h"

#include <array>
#include <iostream>
#include <string>

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace tidlo {

namespace {

struct InkRow
{
    Ink ink;
    const char *code;
};

// The sixteen colours of the terminal, which its user can choose.
constexpr std::array inks{
    InkRow{Ink::strong, "1"}, InkRow{Ink::faint, "2"},   InkRow{Ink::green, "32"},
    InkRow{Ink::blue, "34"},  InkRow{Ink::yellow, "33"}, InkRow{Ink::red, "31"},
};

int columnsOf(int descriptor)
{
    winsize size{};
    const bool isKnown = ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : 80;
}

} // namespace

Terminal terminalAt(int descriptor)
{
    if (isatty(descriptor) == 0)
        return {};
    const QByteArray kind = qgetenv("TERM");
    const bool understandsEscapes = !kind.isEmpty() && kind != "dumb";
    return {.rewritable = understandsEscapes,
            .colour = understandsEscapes && qEnvironmentVariableIsEmpty("NO_COLOR"),
            .columns = columnsOf(descriptor)};
}

QString inked(Ink ink, const QString &text, bool colour)
{
    for (const InkRow &row : inks) {
        if (colour && row.ink == ink)
            return QStringLiteral("\x1b[%1m%2\x1b[0m").arg(QLatin1StringView(row.code), text);
    }
    return text;
}

bool canAsk()
{
    return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0;
}

bool agreesTo(const QString &question)
{
    tcflush(STDIN_FILENO, TCIFLUSH);
    writeAll(STDERR_FILENO, (question + QStringLiteral(" [y/N] ")).toUtf8());
    std::string line;
    if (!std::getline(std::cin, line)) {
        writeAll(STDERR_FILENO, "\n"); // Nobody pressed Return.
        return false;
    }
    const QByteArray answer = QByteArray::fromStdString(line).trimmed().toLower();
    return answer == "y" || answer == "yes";
}

} // namespace tidlo
