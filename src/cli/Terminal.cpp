#include "cli/Terminal.h"

#include <array>

#include <sys/ioctl.h>
#include <unistd.h>

namespace tidlo {

namespace {

struct InkRow
{
    Ink ink;
    const char *code;
};

// The terminal's own sixteen colours, which its user has chosen.
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

} // namespace tidlo
