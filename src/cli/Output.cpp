#include "cli/Output.h"

#include "platform/VisibleText.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace tidlo {

void holdStandardStreams()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const int useless = descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (fcntl(descriptor, F_GETFD) == -1 && open("/dev/null", useless) != descriptor)
            std::abort();
    }
}

int writeAll(int descriptor, const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written = write(descriptor, bytes.constData() + done, bytes.size() - done);
        if (written >= 0) {
            done += written;
        } else if (errno == EAGAIN) {
            pollfd writable{.fd = descriptor, .events = POLLOUT, .revents = 0};
            poll(&writable, 1, -1);
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

ExitStatus print(const QString &text)
{
    if (const int error = writeAll(STDOUT_FILENO, text.toUtf8())) {
        complain(
            QStringLiteral("The output could not be written: %1.").arg(QString::fromLocal8Bit(std::strerror(error))));
        return ExitStatus::failed;
    }
    return ExitStatus::succeeded;
}

ExitStatus print(const nlohmann::ordered_json &json)
{
    constexpr int indent = 2;
    constexpr bool ascii = true;
    const auto replaceInvalid = nlohmann::ordered_json::error_handler_t::replace;
    return print(QString::fromStdString(json.dump(indent, ' ', ascii, replaceInvalid)) + u'\n');
}

void complain(const QString &text)
{
    writeAll(STDERR_FILENO, (QStringLiteral("tidlo-cli: ") + visibleText(text) + u'\n').toUtf8());
}

} // namespace tidlo
