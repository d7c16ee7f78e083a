#include "proxy/Certificate.h"
#include "proxy/ExplainServer.h"
#include "proxy/Listener.h"
#include "proxy/ModelRelay.h"
#include "proxy/OfflineExplanation.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <sstream>

#include <boost/asio/posix/stream_descriptor.hpp>
#include <boost/asio/signal_set.hpp>
#include <sys/resource.h>
#include <unistd.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace tidlo::proxy {
namespace {

int complain(const QString &text)
{
    std::fprintf(stderr, "tidlo-proxy: %s\n", qUtf8Printable(text));
    return 1;
}

/// Each connection needs a descriptor, and one more while a model is asked; by default systems allow few of them.
void allowManyConnections()
{
    constexpr rlim_t wanted = 8'192;
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return;
    limit.rlim_cur = std::max(limit.rlim_cur, std::min(limit.rlim_max, wanted));
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

void prepareProcess()
{
    allowManyConnections();
    std::signal(SIGPIPE, SIG_IGN); // OpenSSL writes to sockets whose other end has closed.
    for (const char *name : {"LISTEN_FDS", "LISTEN_PID", "LISTEN_FDNAMES"})
        ::unsetenv(name); // They are meant for this process only.
#ifdef __GLIBC__
    ::mallopt(M_MMAP_THRESHOLD, 128 * 1024); // Returns the memory of large bodies to the system.
#endif
}

Answer explainedOffline(const std::string &body)
{
    const auto prompt = readPrompt(body);
    const auto *refused = std::get_if<Answer>(&prompt);
    return refused != nullptr ? *refused : explanation(offlineExplanation(std::get<QString>(prompt)));
}

Explain explainerFor(const Settings &settings, asio::thread_pool *pool)
{
    if (!settings.upstream)
        return
            [pool](std::string body) { return on(pool, [body = std::move(body)] { return explainedOffline(body); }); };
    const auto relay = std::make_shared<ModelRelay>(pool, *settings.upstream, tlsOfAClient());
    return [relay](std::string body) { return relay->answer(std::move(body)); };
}

OrReason<std::shared_ptr<SSL_CTX>> tlsFor(const Settings &settings)
{
    if (settings.isPlain)
        return {};
    if (settings.certificate)
        return tlsFrom(*settings.certificate);
    const auto files = localhostCertificate(settings.stateFolder, QDateTime::currentDateTimeUtc());
    if (!files.reason.isEmpty())
        return {.value = nullptr, .reason = files.reason};
    return tlsFrom(files.value);
}

Limits limitsFor(const Settings &settings, const tcp::endpoint &listening)
{
    constexpr int ofAddress = 64;
    Limits limits;
    limits.idle = std::chrono::seconds(settings.idleExit);
    limits.perMinute = settings.perMinute;
    // Connections from a loopback address come from this machine, or from many clients through a server in front.
    limits.connectionsOfAddress =
        static_cast<size_t>(settings.perAddress.value_or(listening.address().is_loopback() ? 0 : ofAddress));
    return limits;
}

/// Prints the service's address, so that whoever started it knows that it is ready, and where questions go.
void announce(const Settings &settings, const tcp::endpoint &listening)
{
    std::ostringstream where;
    where << listening;
    std::printf("%s://%s\n%s\n", settings.isPlain ? "http" : "https", where.str().c_str(),
                qUtf8Printable(whereQuestionsGo(settings)));
    std::fflush(stdout);
}

/// Ends the process when \a input ends, or cannot be read: then nobody waits for an answer, and all files are complete.
void endWith(asio::posix::stream_descriptor &input)
{
    input.async_wait(asio::posix::stream_descriptor::wait_read, [&input](error_code) {
        std::array<char, 64> passedOver{};
        if (::read(input.native_handle(), passedOver.data(), passedOver.size()) <= 0)
            ::_exit(0);
        endWith(input);
    });
}

int run(const Settings &settings)
{
    prepareProcess();
    const auto tls = tlsFor(settings);
    if (!tls.reason.isEmpty())
        return complain(tls.reason);
    asio::thread_pool pool(1); // One thread: decoding takes many times the memory of what is decoded.
    asio::io_context loop(1);
    auto acceptor = listenAs(settings, loop);
    if (!acceptor.reason.isEmpty())
        return complain(acceptor.reason);
    const tcp::endpoint listening = acceptor.value->local_endpoint();
    asio::signal_set signals(loop, SIGTERM, SIGINT, SIGHUP);
    ExplainServer server(std::move(*acceptor.value), tls.value, explainerFor(settings, &pool),
                         limitsFor(settings, listening));
    announce(settings, listening);
    signals.async_wait([&server](error_code error, int) {
        if (!error)
            server.stop();
    });
    asio::posix::stream_descriptor input(loop);
    if (settings.isUntilEof) {
        input.assign(STDIN_FILENO);
        endWith(input);
    }
    while (!server.hasEnded())
        loop.run_one();
    return 0;
}

} // namespace
} // namespace tidlo::proxy

int main(int argc, char *argv[])
{
    using namespace tidlo::proxy;
    try {
        QStringList arguments;
        for (int i = 1; i < argc; ++i)
            arguments.append(QString::fromLocal8Bit(argv[i]));
        const auto settings = settingsFrom(arguments, QProcessEnvironment::systemEnvironment());
        if (const auto *ending = std::get_if<Ending>(&settings)) {
            std::fputs(qUtf8Printable(ending->text), ending->status == 0 ? stdout : stderr);
            return ending->status;
        }
        return run(std::get<Settings>(settings));
    } catch (const std::exception &error) { // Too little memory, too few threads or descriptors.
        std::fprintf(stderr, "tidlo-proxy: %s\n", error.what());
        return 1;
    }
}
