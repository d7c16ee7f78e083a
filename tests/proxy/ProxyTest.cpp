#include "ai/ExplainTest.h"
#include "ai/Prompt.h"
#include "proxy/ProxyProcess.h"
#include "proxy/RawConnection.h"
#include "support/PrintQt.h"

#include <QCoro/QCoroTask>
#include <QFile>
#include <QNetworkProxy>
#include <QTcpServer>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sys/resource.h>
#include <unistd.h>

namespace tidlo {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string warning = "\u26A0\uFE0F ";
const std::string offline = "Written without an AI model";

/// The real client asks the real proxy, which asks a model with scripted replies.
class Proxy : public ExplainTest
{
protected:
    Proxy()
    {
        endpoint.identity = [] { return QStringLiteral("0A1B2C3D-SECRET-DEVICE"); };
    }

    /// The result of the client if it asks \a proxy, whose certificate it trusts.
    std::string explainBy(const ProxyProcess &proxy, const QList<CleanupCandidate> &candidates = {})
    {
        qputenv("SSL_CERT_FILE", proxy.certificate());
        endpoint.host = QStringLiteral("localhost:%1").arg(proxy.port());
        return explain(candidates);
    }

    /// The environment of a proxy whose model is \a server.
    QStringList modelAt(const ScriptedServer &server) const
    {
        return {QStringLiteral("GEMINI_API_KEY=secret-key"), QStringLiteral("GEMINI_BASE_URL=https://") + server.host(),
                QStringLiteral("SSL_CERT_FILE=") + QString::fromUtf8(folder / "authority.pem")};
    }
};

CleanupCandidate caches()
{
    return {.id = QUuid::createUuid(),
            .title = QStringLiteral("User and developer caches"),
            .detail = QStringLiteral("A detail."),
            .category = CleanupCategory::caches,
            .risk = CleanupRisk::safe,
            .bytes = 12'500'000,
            .paths = {"/home/me/secret-folder"},
            .selected = true,
            .aiExplanation = std::nullopt};
}

QByteArray answer(const QByteArray &text)
{
    return reply(200,
                 R"({"candidates":[{"content":{"parts":[{"text":")" + text + R"("}],"role":"model"}}],"usage":1})");
}

/// Allows as many open files as possible; 1,000 connections need more than the default.
void allowManyFiles()
{
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 8'192);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
}

bool isListening(int port)
{
    QTcpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(QStringLiteral("127.0.0.1"), static_cast<quint16>(port));
    return socket.waitForConnected();
}

void waitUntilNobodyListens(int port)
{
    while (isListening(port)) {
    }
}

} // namespace

TEST_F(Proxy, ExplainsOfflineWithoutAKey)
{
    const ProxyProcess proxy;

    EXPECT_THAT(explainBy(proxy, {caches()}),
                AllOf(StartsWith(offline), HasSubstr("The largest finding: app caches, 12.5 MB.")));
}

TEST_F(Proxy, SaysOfAScanThatFoundNothingThatThereIsNothingToExplain)
{
    const ProxyProcess proxy;

    EXPECT_THAT(explainBy(proxy), HasSubstr("There are no findings to explain."));
}

TEST_F(Proxy, RelaysTheQuestionToTheModelWithAKey)
{
    const ScriptedServer model(localhost(), sending(answer("Some caches.")));
    const ProxyProcess proxy({}, modelAt(model));

    EXPECT_EQ(explainBy(proxy, {caches()}), "Some caches.");

    ASSERT_EQ(model.requests().size(), 1);
    const ScriptedServer::Request &request = model.requests().first();
    EXPECT_EQ(request.headers.at("x-goog-api-key"), "secret-key");
    EXPECT_THAT(request.body.toStdString(), HasSubstr("title: User and developer caches"));
    for (const auto &[name, value] : request.headers)
        EXPECT_THAT(value.toStdString(), Not(HasSubstr("SECRET-DEVICE"))) << name.constData();
}

TEST_F(Proxy, TellsFailuresInWordsForAPerson)
{
    const ScriptedServer model(localhost(), sending(reply(500, "secret details")));
    const ProxyProcess proxy({}, modelAt(model));

    EXPECT_EQ(explainBy(proxy), warning + "The AI model could not answer. Please try again later.");
}

TEST_F(Proxy, LimitsEachDeviceToTenRequestsAMinute)
{
    const ProxyProcess proxy;
    for (int request = 0; request < 10; ++request)
        EXPECT_THAT(explainBy(proxy), StartsWith(offline));

    EXPECT_THAT(explainBy(proxy), StartsWith(warning + "Too many explanations were asked for. Please wait "));
    endpoint.identity = [] { return QStringLiteral("another"); };
    EXPECT_THAT(explainBy(proxy), StartsWith(offline));
}

TEST_F(Proxy, TellsTheClientThatAQuestionIsTooLong)
{
    const ProxyProcess proxy;
    CleanupCandidate candidate = caches();
    candidate.detail = QString(1'000'000, u'x');

    EXPECT_EQ(explainBy(proxy, {candidate}), warning + "The request is too long: more than 256 KB.");
}

TEST_F(Proxy, ShowsACertificateThatOnlyWhoTrustsItTakes)
{
    const ProxyProcess proxy;
    endpoint.host = QStringLiteral("localhost:%1").arg(proxy.port());

    EXPECT_THAT(explain(), StartsWith(requestFailed));
    EXPECT_EQ(proxy.origin(), QStringLiteral("https://127.0.0.1:%1").arg(proxy.port()));
    struct stat status
    {};
    ASSERT_EQ(stat(proxy.key().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600);
}

TEST_F(Proxy, TakesTheCertificateThatItIsGiven)
{
    for (const auto &[name, content] :
         {std::pair("c.pem", localhost().certificate.toPem()), std::pair("k.pem", localhost().key.toPem())}) {
        QFile file(QFile::decodeName(folder.file(name, 0)));
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    }
    const ProxyProcess proxy({QStringLiteral("--certificate"), QString::fromUtf8(folder / "c.pem"),
                              QStringLiteral("--key"), QString::fromUtf8(folder / "k.pem")});
    endpoint.host = QStringLiteral("localhost:%1").arg(proxy.port());

    EXPECT_THAT(explain(), StartsWith(offline)) << "whose authority is trusted";
    EXPECT_FALSE(QFile::exists(QFile::decodeName(proxy.key()))) << "none is made";
}

TEST_F(Proxy, SpeaksPlainHttpWhenAsked)
{
    const ProxyProcess proxy({QStringLiteral("--plain-http")});

    EXPECT_THAT(RawConnection(proxy.port()).send("GET /healthz HTTP/1.1\r\n\r\n").toEnd().toStdString(),
                EndsWith(R"({"status":"ok"})"));
    EXPECT_THAT(proxy.origin().toStdString(), StartsWith("http://127.0.0.1:"));
}

TEST_F(Proxy, SurvivesClientsThatDoNotSpeakTls)
{
    const ProxyProcess proxy;
    RawConnection(proxy.port()).send("GET /healthz HTTP/1.1\r\n\r\n").toEnd();
    RawConnection(proxy.port()).send(QByteArray(1'000, '\x16')).toEnd();

    EXPECT_THAT(explainBy(proxy), StartsWith(offline));
}

TEST_F(Proxy, AnswersWhileAThousandConnectionsDoNothing)
{
    allowManyFiles();
    const ProxyProcess proxy;
    std::vector<std::unique_ptr<RawConnection>> idle;
    for (int number = 0; number < 1'000; ++number)
        idle.push_back(std::make_unique<RawConnection>(proxy.port()));

    EXPECT_THAT(explainBy(proxy), StartsWith(offline));
}

TEST_F(Proxy, AsksAServerOfChatCompletions)
{
    const ScriptedServer model(localhost(), sending(reply(200, R"({"choices":[{"message":{"content":"Caches."}}]})")));
    QStringList environment = modelAt(model).filter(QStringLiteral("SSL_CERT_FILE"));
    environment += {QStringLiteral("TIDLO_CHAT_URL=https://") + model.host() + QStringLiteral("/v1"),
                    QStringLiteral("TIDLO_CHAT_MODEL=m")};
    const ProxyProcess proxy({}, environment);

    EXPECT_EQ(explainBy(proxy, {caches()}), "Caches.");
    ASSERT_EQ(model.requests().size(), 1);
    EXPECT_EQ(model.requests().first().target, "/v1/chat/completions");
}

TEST_F(Proxy, SendsNothingAnywhereWhenItIsToBeOffline)
{
    const ScriptedServer model(localhost(), sending(answer("Some caches.")));
    const ProxyProcess proxy({QStringLiteral("--offline")}, modelAt(model));

    EXPECT_THAT(explainBy(proxy), StartsWith(offline));
    EXPECT_EQ(model.connections(), 0);
}

TEST_F(Proxy, ServesTheSocketThatItIsHanded)
{
    QTcpServer listening;
    ASSERT_TRUE(listening.listen(QHostAddress::LocalHost));
    QProcess process;
    process.setChildProcessModifier([&] { ::dup2(static_cast<int>(listening.socketDescriptor()), 3); });
    const auto start = [&](const QString &arguments) { // Started by a shell that becomes the service, so that the
                                                       // process number is the service's own.
        process.start(QStringLiteral("/bin/sh"),
                      {QStringLiteral("-c"),
                       QStringLiteral("LISTEN_FDS=1 LISTEN_PID=$$ exec " TIDLO_PROXY " --plain-http --idle-exit 1 ") +
                           arguments});
    };

    start({});
    EXPECT_THAT(RawConnection(listening.serverPort()).send("GET /healthz HTTP/1.1\r\n\r\n").toEnd().toStdString(),
                EndsWith(R"({"status":"ok"})"));
    ASSERT_TRUE(process.waitForFinished(120'000));
    EXPECT_EQ(process.exitCode(), 0) << "it ends when nobody asks any more";
    EXPECT_THAT(process.readAllStandardOutput().toStdString(),
                StartsWith("http://127.0.0.1:" + std::to_string(listening.serverPort()) + '\n'));
    start(QStringLiteral("--port 1"));
    ASSERT_TRUE(process.waitForFinished(120'000));
    EXPECT_EQ(process.exitCode(), 2);
}

TEST_F(Proxy, TakesNothingButASocketThatListens)
{
    QProcess process;
    process.start(QStringLiteral("/bin/sh"),
                  {QStringLiteral("-c"),
                   QStringLiteral("LISTEN_FDS=1 LISTEN_PID=$$ exec " TIDLO_PROXY " --plain-http 3< /dev/null")});
    ASSERT_TRUE(process.waitForFinished(120'000));

    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError(),
              "tidlo-proxy: The socket that was handed over is not a listening TCP socket.\n");
}

TEST_F(Proxy, FinishesWhatIsUnderWayWhenItIsTerminated)
{
    std::unique_ptr<ProxyProcess> proxy;
    const ScriptedServer model(localhost(), [&](QSslSocket &connection, const ScriptedServer::Request &) {
        proxy->terminate();
        waitUntilNobodyListens(proxy->port());
        sending(answer("At last."))(connection, {});
    });
    proxy = std::make_unique<ProxyProcess>(QStringList(), modelAt(model));

    EXPECT_EQ(explainBy(*proxy), "At last.");
    EXPECT_EQ(proxy->waitForEnd(), 0);
}

TEST_F(Proxy, LogsNoSecrets)
{
    const ScriptedServer model(localhost(), sending(reply(403, "secret details")));
    ProxyProcess proxy({}, modelAt(model));
    explainBy(proxy, {caches()});
    proxy.terminate();
    ASSERT_EQ(proxy.waitForEnd(), 0);

    EXPECT_EQ(proxy.log(), "/explain 502 upstream_refused\n");
}

TEST_F(Proxy, EndsWithAReasonWhenItCannotRun)
{
    const ProxyProcess proxy;
    QProcess other;
    other.start(QStringLiteral(TIDLO_PROXY),
                {QStringLiteral("--plain-http"), QStringLiteral("--port"), QString::number(proxy.port())});
    ASSERT_TRUE(other.waitForFinished(120'000));

    EXPECT_EQ(other.exitCode(), 1);
    EXPECT_EQ(other.readAllStandardOutput(), "");
    EXPECT_EQ(other.readAllStandardError().toStdString(),
              "tidlo-proxy: Cannot listen on port " + std::to_string(proxy.port()) + " of 127.0.0.1.\n");
}

} // namespace tidlo
