#include "ai/OwnService.h"

#include "platform/HomeFolder.h"
#include "platform/Loopback.h"

#include <QByteArrayList>
#include <QHostAddress>

#include <utility>

#include <poll.h>
#include <unistd.h>

namespace tidlo {

namespace {

constexpr int handedOver = 3; ///< The descriptor where the service expects its socket.
constexpr int patience = 10'000;

/// The whole environment of the service: no key, no address of a model, no proxy.
QByteArrayList environment()
{
    QByteArrayList list{"LC_ALL=C.UTF-8", "LISTEN_FDS=1", "HOME=" + homeFolder()};
    if (qEnvironmentVariableIsSet("XDG_STATE_HOME"))
        list.append("XDG_STATE_HOME=" + qgetenv("XDG_STATE_HOME"));
    return list;
}

/// Starts the service; the listening socket is passed to it.
OrError<ChildProcess> spawn(const FilePath &program, const Pipe &life, const Pipe &words, const Descriptor &listener)
{
    // The process number, which shows the service that the socket is meant for it, is known only in the new process.
    const QByteArrayList arguments{
        "/bin/sh", "-c", "LISTEN_PID=$$; export LISTEN_PID; exec \"$@\"", "sh", program, "--offline", "--until-eof"};
    return ChildProcess::start(
        arguments, environment(),
        {{life.readEnd.get(), STDIN_FILENO}, {words.writeEnd.get(), STDOUT_FILENO}, {listener.get(), handedOver}});
}

/// Waits for the line with which the service reports that it is ready. Empty then; otherwise why it is not.
QString obstacleAt(const Descriptor &output)
{
    pollfd waiting{.fd = output.get(), .events = POLLIN, .revents = 0};
    char first = 0;
    if (uninterrupted([&] { return poll(&waiting, 1, patience); }) != 1)
        return QStringLiteral("it did not get ready");
    return uninterrupted([&] { return read(output.get(), &first, 1); }) == 1 ? QString() : QStringLiteral("it ended");
}

} // namespace

std::optional<OwnService> OwnService::start(const FilePath &program, QString &obstacle)
{
    Pipe life = openPipe();
    Pipe words = openPipe();
    const Descriptor listener = listenOnLoopback();
    for (const int error : {life.writeEnd.error(), words.writeEnd.error(), listener.error()}) {
        if (error != 0) {
            obstacle = qt_error_string(error);
            return std::nullopt;
        }
    }
    OrError<ChildProcess> process = spawn(program, life, words, listener);
    words.writeEnd = Descriptor(); // Otherwise its end could never be read.
    obstacle = process ? obstacleAt(words.readEnd) : qt_error_string(process.error());
    if (!obstacle.isEmpty())
        return std::nullopt;
    return OwnService(std::move(life.writeEnd), std::move(*process), portOf(listener));
}

FilePath ownServiceProgram()
{
    const FilePath executable = executablePath();
    const FilePath folder = executable.left(executable.lastIndexOf('/'));
    for (const char *place : {"/tidlo-proxy", "/../libexec/tidlo/tidlo-proxy"}) {
        if (FilePath program = folder + place; access(program.constData(), X_OK) == 0)
            return program;
    }
    return {};
}

bool isThisMachine(const QString &host)
{
    QUrl url;
    url.setAuthority(host);
    return url.host() == u"localhost" || QHostAddress(url.host()).isLoopback();
}

bool isAnswered(const QUrl &url)
{
    constexpr int usualPort = 443;
    return isAnsweredOnLoopback(url.port(usualPort));
}

} // namespace tidlo
