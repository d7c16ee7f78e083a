#include "ai/ExplainTest.h"
#include "ai/PlainServer.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QDir>
#include <QNetworkProxyFactory>
#include <QTimer>

#include <gmock/gmock.h>

#include <atomic>
#include <semaphore>
#include <thread>

#include <dlfcn.h>
#include <netdb.h>

namespace tidlo {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string timedOut = requestFailed + "The request timed out.";

/// Sets the proxy that the system reports.
class SystemProxy final
{
public:
    explicit SystemProxy(const std::function<QNetworkProxy()> &answer)
    {
        QNetworkProxyFactory::setApplicationProxyFactory(new Factory(answer));
    }
    ~SystemProxy() { QNetworkProxyFactory::setUseSystemConfiguration(true); }
    SystemProxy(const SystemProxy &) = delete;
    SystemProxy &operator=(const SystemProxy &) = delete;

private:
    struct Factory final : QNetworkProxyFactory
    {
        explicit Factory(std::function<QNetworkProxy()> given)
            : answer(std::move(given))
        {}
        QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &) override { return {answer()}; }

        std::function<QNetworkProxy()> answer;
    };
};

/// Blocks each thread that passes it until it is opened.
struct Gate
{
    void pass()
    {
        gate.acquire();
        gate.release();
    }
    void open() { gate.release(); }

    std::binary_semaphore gate{0};
};

QNetworkProxy passing(Gate &gate)
{
    gate.pass();
    return QNetworkProxy(QNetworkProxy::NoProxy);
}

Gate &slowResolver()
{
    static Gate gate;
    return gate;
}

qsizetype threads()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}

/// The number of threads after Qt has asked the system for proxies, on a thread that it keeps afterwards.
qsizetype threadsOnceProxiesWereAsked()
{
    QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(QUrl(QStringLiteral("https://localhost"))));
    return threads();
}

class Route : public ExplainTest
{
protected:
    /// Waits until there are no more threads than at the start of the test, apart from some that the system keeps.
    void waitForThreads(qsizetype ofTheSystem = 0) const
    {
        while (threads() > threadsBefore + ofTheSystem)
            std::this_thread::yield();
    }

    qsizetype threadsBefore = threadsOnceProxiesWereAsked();
};

} // namespace

/// Replaces the system's resolver, and is slow for one name.
extern "C" int getaddrinfo(const char *name, const char *service, const addrinfo *hints, addrinfo **result)
{
    if (name != nullptr && std::string(name) == "slow.example") {
        slowResolver().pass();
        return EAI_NONAME;
    }
    static const auto real = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return real(name, service, hints, result);
}

TEST_F(Route, LeadsThroughTheProxyOfTheSystemWhichLearnsTheNameAlone)
{
    const PlainServer proxy({"HTTP/1.1 502 Bad gateway\r\n\r\n"});
    qputenv("https_proxy", "http://" + proxy.host().toUtf8());
    endpoint.host = QStringLiteral("explain.example");

    EXPECT_THAT(explain(), StartsWith(requestFailed));
    EXPECT_TRUE(proxy.received().startsWith("CONNECT explain.example:443 HTTP/1.")) << proxy.received().constData();
    EXPECT_FALSE(proxy.received().contains("X-Device-UUID"));
}

TEST_F(Route, LeadsThroughAProxyWithItsNameAndPassword)
{
    const PlainServer proxy({"HTTP/1.1 502 Bad gateway\r\n\r\n"});
    const SystemProxy system([&] {
        return QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), proxy.port(),
                             QStringLiteral("user"), QStringLiteral("p@ss:/word"));
    });
    endpoint.host = QStringLiteral("explain.example");

    EXPECT_THAT(explain(), StartsWith(requestFailed));
    EXPECT_THAT(proxy.received().toStdString(),
                HasSubstr("Proxy-Authorization: Basic " + QByteArray("user:p@ss:/word").toBase64().toStdString()));
}

TEST_F(Route, LeadsThroughASocksProxyWhichLooksTheNameUp)
{
    const PlainServer proxy({QByteArray("\x05\x00", 2), "refused"});
    const SystemProxy system(
        [&] { return QNetworkProxy(QNetworkProxy::Socks5Proxy, QStringLiteral("127.0.0.1"), proxy.port()); });
    endpoint.host = QStringLiteral("explain.example");

    EXPECT_THAT(explain(), StartsWith(requestFailed));
    EXPECT_THAT(proxy.received().toStdString(), StartsWith("\x05"));
    EXPECT_THAT(proxy.received().toStdString(), HasSubstr("\x0f"
                                                          "explain.example"));
}

TEST_F(Route, IsWhatTheSystemSaysWhateverTheEnvironmentWouldExcept)
{
    const PlainServer proxy({"HTTP/1.1 502 Bad gateway\r\n\r\n"});
    const SystemProxy system(
        [&] { return QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), proxy.port()); });
    endpoint.host = QStringLiteral("explain.example");
    qputenv("no_proxy", "*");

    EXPECT_THAT(explain(), StartsWith(requestFailed));
    EXPECT_FALSE(proxy.received().isEmpty());

    qunsetenv("no_proxy");
}

TEST_F(Route, IsStraightWhereTheSystemHasNoProxyWhateverTheEnvironmentNames)
{
    const PlainServer proxy({"HTTP/1.1 502 Bad gateway\r\n\r\n"});
    const SystemProxy system([] { return QNetworkProxy(QNetworkProxy::NoProxy); });
    qputenv("https_proxy", "http://" + proxy.host().toUtf8());

    EXPECT_EQ(explainAnswered(reply(200, R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})")), "A");
    EXPECT_TRUE(proxy.received().isEmpty());
}

TEST_F(Route, IsNotWaitedForLongerThanTheLimitAllows)
{
    Gate gate;
    const SystemProxy system([&gate] { return passing(gate); });
    endpoint.host = QStringLiteral("explain.example");
    endpoint.timeLimit = 100ms;

    EXPECT_EQ(explain(), timedOut);

    gate.open();
    waitForThreads();
}

TEST_F(Route, IsNotWaitedForWhenTheApplicationQuits)
{
    Gate gate;
    const SystemProxy system([&gate] { return passing(gate); });
    endpoint.host = QStringLiteral("explain.example");
    std::optional<QString> explanation;
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);

    GeminiClient::explain({}, endpoint).then([&](const std::optional<QString> &text) { explanation = text; });
    QCoreApplication::exec();
    waitUntil([&] { return explanation.has_value(); });

    EXPECT_EQ(explanation.value_or(QString()).toStdString(), requestFailed + "The application quit.");
    gate.open();
    waitForThreads();
}

TEST_F(Route, ToAServerThatStaysSilentHoldsNoThread)
{
    const ScriptedServer server(localhost(), [](QSslSocket &, const ScriptedServer::Request &) {});
    endpoint.timeLimit = 500ms;

    EXPECT_EQ(explainBy(server), timedOut);
    waitForThreads();
}

TEST_F(Route, OfANameThatIsLongLookedUpHoldsNoThreadButTheSystems)
{
    endpoint.host = QStringLiteral("slow.example");
    endpoint.timeLimit = 500ms;

    EXPECT_EQ(explain(), timedOut);
    waitForThreads(1);

    slowResolver().open();
    waitForThreads();
}

TEST_F(Route, IsCutAtOnceWhenNobodyWantsTheAnswerAnyMore)
{
    std::stop_source source;
    QSslSocket *open = nullptr;
    const ScriptedServer server(localhost(), [&](QSslSocket &connection, const ScriptedServer::Request &) {
        open = &connection;
        source.request_stop();
    });
    endpoint.host = server.host();

    EXPECT_EQ(QCoro::waitFor(GeminiClient::explain({}, endpoint, {.unwanted = source.get_token()})), std::nullopt);

    ASSERT_NE(open, nullptr);
    waitUntil([open] { return open->state() == QAbstractSocket::UnconnectedState; });
    waitForThreads();
}

} // namespace tidlo
