#include "cli/Question.h"

#include "cli/Output.h"

#include <iostream>
#include <string>

#include <termios.h>
#include <unistd.h>

namespace tidlo {

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
