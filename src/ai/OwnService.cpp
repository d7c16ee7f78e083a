#include "ai/OwnService.h"

#include "platform/HomeFolder.h"
#include "platform/Process.h"

#include <QByteArrayList>
#include <QHostAddress>

#include <array>
#include <csignal>
#include <utility>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace tidlo {

namespace {

constexpr int handedOver = 3; ///< The descriptor where the service expects its socket.
constexpr int patience = 10'000;

/// A duplicate whose number is not one of those that the service gets.
Descriptor outOfTheWay(const Descriptor &descriptor)
{
    return Descriptor(fcntl(descriptor.get(), F_DUPFD_CLOEXEC, handedOver + 1));
}

struct Pipe
{
    Descriptor output;
    Descriptor input;
};

Pipe makePipe()
{
    std::array<int, 2> ends{-1, -1};
#ifdef __APPLE__ // A program that another thread starts at this moment would inherit the pipe and keep the service
                 // alive.
    if (pipe(ends.data()) != 0)
        return {};
#else
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
#endif
    const Descriptor output(ends[0]);
    const Descriptor input(ends[1]);
    return {.output = outOfTheWay(output), .input = outOfTheWay(input)};
}

/// Passes the loopback address of \a family, with \a port, to \a call.
template <typename Call>
int withLoopback(int family, int port, Call call)
{
    sockaddr_in four{};
    four.sin_family = AF_INET;
    four.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    four.sin_port = htons(static_cast<in_port_t>(port));
    sockaddr_in6 six{};
    six.sin6_family = AF_INET6;
    six.sin6_addr = in6addr_loopback;
    six.sin6_port = four.sin_port;
    return family == AF_INET ? call(reinterpret_cast<const sockaddr *>(&four), sizeof four)
                             : call(reinterpret_cast<const sockaddr *>(&six), sizeof six);
}

Descriptor listenSomewhere()
{
    const Descriptor made(socket(AF_INET, SOCK_STREAM, 0));
    Descriptor listener = outOfTheWay(made);
    const auto bindTo = [&listener](const sockaddr *name, socklen_t size) { return bind(listener.get(), name, size); };
    if (withLoopback(AF_INET, 0, bindTo) != 0 || listen(listener.get(), SOMAXCONN) != 0)
        return {};
    return listener;
}

int portOf(const Descriptor &listener)
{
    sockaddr_in name{};
    socklen_t size = sizeof name;
    const bool isKnown = getsockname(listener.get(), reinterpret_cast<sockaddr *>(&name), &size) == 0;
    return isKnown ? ntohs(name.sin_port) : 0;
}

/// The whole environment of the service: no key, no address of a model, no proxy.
QByteArrayList environment()
{
    QByteArrayList list{"LC_ALL=C.UTF-8", "LISTEN_FDS=1", "HOME=" + homeFolder()};
    if (qEnvironmentVariableIsSet("XDG_STATE_HOME"))
        list.append("XDG_STATE_HOME=" + qgetenv("XDG_STATE_HOME"));
    return list;
}

/// A list in the form that the system expects, with a null at its end. Points into \a texts.
std::vector<char *> pointers(const QByteArrayList &texts)
{
    std::vector<char *> list;
    for (const QByteArray &text : texts)
        list.push_back(const_cast<char *>(text.constData()));
    list.push_back(nullptr);
    return list;
}

/// The process number, or -1.
pid_t spawn(const FilePath &program, const Descriptor &input, const Descriptor &output, const Descriptor &listener)
{
    // The process number, which shows the service that the socket is meant for it, is known only in the new process.
    const QByteArrayList arguments{
        "/bin/sh", "-c", "LISTEN_PID=$$; export LISTEN_PID; exec \"$@\"", "sh", program, "--offline", "--until-eof"};
    const QByteArrayList variables = environment();
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, input.get(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, output.get(), STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&files, listener.get(), handedOver);
    pid_t process = -1;
    const int error =
        posix_spawn(&process, "/bin/sh", &files, nullptr, pointers(arguments).data(), pointers(variables).data());
    posix_spawn_file_actions_destroy(&files);
    return error == 0 ? process : -1;
}

/// Waits for the line with which the service reports that it is ready.
bool isReady(const Descriptor &output)
{
    pollfd waiting{.fd = output.get(), .events = POLLIN, .revents = 0};
    char first = 0;
    return uninterrupted([&] { return poll(&waiting, 1, patience); }) == 1 && read(output.get(), &first, 1) == 1;
}

} // namespace

std::optional<OwnService> OwnService::start(const FilePath &program)
{
    Pipe life = makePipe();
    Pipe words = makePipe();
    const Descriptor listener = listenSomewhere();
    if (program.isEmpty() || !life.input.isValid() || !words.input.isValid() || !listener.isValid())
        return std::nullopt;
    OwnService service;
    service.process = spawn(program, life.output, words.input, listener);
    service.life = std::move(life.input);
    service.listening = portOf(listener);
    words.input = Descriptor(); // Otherwise its end could never be read.
    if (service.process == -1 || !isReady(words.output))
        return std::nullopt;
    return service;
}

OwnService::OwnService(OwnService &&other) noexcept
    : life(std::move(other.life))
    , process(std::exchange(other.process, -1))
    , listening(other.listening)
{}

OwnService::~OwnService()
{
    if (process == -1)
        return;
    kill(process, SIGKILL); // All its files are complete at every moment.
    uninterrupted([this] { return waitpid(process, nullptr, 0); });
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
    for (const int family : {AF_INET, AF_INET6}) {
        const Descriptor made(socket(family, SOCK_STREAM, 0));
        const auto connectTo = [&made](const sockaddr *name, socklen_t size) {
            return uninterrupted([&] { return connect(made.get(), name, size); });
        };
        if (withLoopback(family, url.port(usualPort), connectTo) == 0)
            return true;
    }
    return false;
}

} // namespace tidlo
