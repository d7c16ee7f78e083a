#include "proxy/Certificate.h"
#include "proxy/ExplainServer.h"
#include "proxy/GeminiRelay.h"
#include "proxy/OfflineExplanation.h"

#include <QHostAddress>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <thread>

#include <sys/resource.h>

namespace {

int complain(const QString &text)
{
    std::fprintf(stderr, "tidlo-proxy: %s\n", qUtf8Printable(text));
    return 1;
}

/// Each connection takes a descriptor, and systems allow few of them unless asked.
void allowManyConnections()
{
    constexpr rlim_t wanted = 8'192;
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return;
    limit.rlim_cur = std::max(limit.rlim_cur, std::min(limit.rlim_max, wanted));
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

/// The signals that ask to stop, which from now on wait until they are fetched.
sigset_t heldStopSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, signal);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

ExplainServer::Explain explainerFor(const Settings &settings)
{
    if (settings.upstream)
        return [upstream = *settings.upstream](const QString &prompt) { return relay(prompt, upstream); };
    return [](const QString &prompt) { return explanation(offlineExplanation(prompt)); };
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

/// Where it is, on standard output, so that whoever started it knows that it is ready.
void announce(const Settings &settings, int port)
{
    const bool isBracketed = QHostAddress(settings.address).protocol() == QAbstractSocket::IPv6Protocol;
    const QString host = isBracketed ? u'[' + settings.address + u']' : settings.address;
    std::printf("%s://%s:%d\n", settings.isPlain ? "http" : "https", qPrintable(host), port);
    std::fflush(stdout);
}

int run(const Settings &settings)
{
    sigset_t signals = heldStopSignals();
    allowManyConnections();
    const auto tls = tlsFor(settings);
    if (!tls.reason.isEmpty())
        return complain(tls.reason);
    ExplainServer server(explainerFor(settings), settings.perMinute, tls.value);
    const int port = server.bind(settings.address.toStdString(), settings.port);
    if (port == -1)
        return complain(QStringLiteral("Port %1 of %2 is not to be had.").arg(settings.port).arg(settings.address));
    announce(settings, port);
    std::jthread stopper([&] {
        int signal = 0;
        sigwait(&signals, &signal);
        server.askToStop();
    });
    if (server.serve())
        return 0;
    pthread_kill(stopper.native_handle(), SIGTERM);
    return complain(QStringLiteral("No more connections are accepted."));
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const auto settings = settingsFrom(arguments, QProcessEnvironment::systemEnvironment());
    if (const auto *ending = std::get_if<Ending>(&settings)) {
        std::fputs(qUtf8Printable(ending->text), ending->status == 0 ? stdout : stderr);
        return ending->status;
    }
    return run(std::get<Settings>(settings));
}
