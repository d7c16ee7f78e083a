#include "proxy/GeminiRelay.h"

#include "ai/ScriptedServer.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QFutureWatcher>
#include <QTcpServer>
#include <QTimer>
#include <QtConcurrentRun>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;

namespace {

const QString question = QStringLiteral("Why \u00e9?");

/// A test in which the model's server says what it is told, over TLS.
class GeminiRelay : public testing::Test
{
protected:
    GeminiRelay()
    {
        QFile file(QFile::decodeName(trusted));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(authority().certificate()) > 0);
        qputenv("SSL_CERT_FILE", trusted);
    }
    ~GeminiRelay() override
    {
        qunsetenv("SSL_CERT_FILE");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static const TestAuthority &authority()
    {
        static const TestAuthority authority;
        return authority;
    }
    static const TestIdentity &localhost()
    {
        static const TestIdentity identity = authority().issue("localhost");
        return identity;
    }

    /// What the relay says when the model's server is at \a host.
    Answer ask(const QString &host, std::chrono::milliseconds timeLimit = 100s)
    {
        upstream.baseUrl = QStringLiteral("https://") + host;
        QFutureWatcher<Answer> watcher;
        QEventLoop loop;
        QObject::connect(&watcher, &QFutureWatcher<Answer>::finished, &loop, &QEventLoop::quit);
        watcher.setFuture(QtConcurrent::run([=, this] { return relay(question, upstream, timeLimit); }));
        loop.exec();
        return watcher.result();
    }

    /// What it says when the model's server answers with \a bytes and closes the connection.
    Answer askAnswered(const QByteArray &bytes)
    {
        const ScriptedServer server(localhost(), sending(bytes));
        return ask(server.host());
    }

    Upstream upstream{.key = QStringLiteral("secret-key")};

private:
    TemporaryHome files;
    FilePath trusted = files.file("authority.pem", 0);
};

/// The status and the two texts of a failure.
std::string told(const Answer &answer)
{
    const auto error = decode<ProxyErrorResponse>(answer.body).record;
    if (!error)
        return "no failure: " + answer.body.toStdString();
    EXPECT_EQ(answer.error, error->error.toUtf8());
    EXPECT_THAT(answer.body.toStdString(), Not(HasSubstr("secret")));
    return std::to_string(answer.status) + ' ' + (error->error + u' ' + error->message).toStdString();
}

constexpr int mostDrops = 500;

/// Says \a start and then \a drop, again and again, for much longer than anybody here waits. Counts them in \a said.
ScriptedServer::Script dripping(const QByteArray &start, const QByteArray &drop, int &said)
{
    return [=, &said](QSslSocket &connection, const ScriptedServer::Request &) {
        connection.write(start);
        auto *drops = new QTimer(&connection);
        QObject::connect(drops, &QTimer::timeout, &connection, [=, &connection, &said] {
            connection.write(drop);
            if (++said == mostDrops)
                connection.disconnectFromHost();
        });
        drops->start(20ms);
    };
}

const std::string unreachable = "502 upstream_unreachable The AI model could not be reached. Please try again later.";
const std::string late = "504 upstream_late The AI model took too long. Please try again later.";
const std::string silent = "502 upstream_silent The AI model gave no answer that could be shown.";

} // namespace

TEST_F(GeminiRelay, AsksTheModelWithTheKeyInAHeaderAlone)
{
    const ScriptedServer server(localhost(), sending(reply(200, R"({"candidates":[]})")));

    ask(server.host());

    ASSERT_EQ(server.requests().size(), 1);
    const ScriptedServer::Request &request = server.requests().first();
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.target, "/v1beta/models/gemini-1.5-flash:generateContent");
    EXPECT_EQ(request.body, QByteArray("{\"contents\":[{\"parts\":[{\"text\":\"Why \u00e9?\"}]}]}"));
    EXPECT_EQ(request.headers.at("Content-Type"), "application/json");
    EXPECT_EQ(request.headers.at("x-goog-api-key"), "secret-key");
}

TEST_F(GeminiRelay, AsksWhereAndWhomItIsTold)
{
    upstream.model = QStringLiteral("other-2");
    const ScriptedServer server(localhost(), sending(reply(200, "{}")));

    ask(server.host() + QStringLiteral("/base/"));

    ASSERT_EQ(server.requests().size(), 1);
    EXPECT_EQ(server.requests().first().target, "/base/v1beta/models/other-2:generateContent");
}

TEST_F(GeminiRelay, KeepsTheTextsAlone)
{
    const Answer answer = askAnswered(reply(200, R"({"candidates":[{"content":{"role":"model","parts":[{"text":"A"},
        {"functionCall":{}},{"text":"B\n"}]},"finishReason":"STOP","safetyRatings":[]}],"usageMetadata":{"total":5},
        "modelVersion":"x"})"));

    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.body, R"({"candidates":[{"content":{"parts":[{"text":"A"},{},{"text":"B\n"}]}}]})");
}

TEST_F(GeminiRelay, TellsThatNothingWasSaid)
{
    for (const char *body :
         {R"({"candidates":[]})", R"({"promptFeedback":{"blockReason":"SAFETY"}})", "<html>", "",
          R"({"candidates":[{"finishReason":"SAFETY"}]})", R"({"candidates":[{"content":{"parts":[{"text":""}]}}]})",
          R"({"candidates":[{"content":{"parts":[]}},{"content":{"parts":[{"text":"B"}]}}]})"})
        EXPECT_EQ(told(askAnswered(reply(200, body))), silent) << body;
}

TEST_F(GeminiRelay, TellsFailuresOfTheModelInWordsForAPerson)
{
    const QByteArray details = R"({"error":{"message":"secret details"}})";
    const std::string refused =
        "502 upstream_refused The AI service is not set up correctly. Please tell whoever runs it.";
    const std::string busy =
        "502 upstream_busy The AI model has too much to do at the moment. Please try again in a few minutes.";
    const std::string failed = "502 upstream_failed The AI model could not answer. Please try again later.";

    for (const int status : {400, 401, 403, 404})
        EXPECT_EQ(told(askAnswered(reply(status, details))), refused) << status;
    for (const int status : {429, 503})
        EXPECT_EQ(told(askAnswered(reply(status, details))), busy) << status;
    for (const int status : {201, 302, 402, 500, 502, 599})
        EXPECT_EQ(told(askAnswered(reply(status, details))), failed) << status;
}

TEST_F(GeminiRelay, DoesNotFollowRedirects)
{
    const ScriptedServer other(localhost(), sending(reply(200, "{}")));
    const QByteArray location = "Location: https://" + other.host().toUtf8() + "/\r\n";

    askAnswered(reply(307, "", location));

    EXPECT_EQ(other.connections(), 0);
}

TEST_F(GeminiRelay, TellsThatNobodyIsThere)
{
    ScriptedServer server(localhost(), sending(""));
    server.close();

    EXPECT_EQ(told(ask(server.host())), unreachable);
    EXPECT_EQ(told(ask(QStringLiteral("does-not-exist.invalid"))), unreachable);
}

TEST_F(GeminiRelay, TellsThatTheAnswerBrokeOff)
{
    EXPECT_EQ(told(askAnswered("")), unreachable);
    EXPECT_EQ(told(askAnswered("nonsense\r\n\r\n")), unreachable);
    EXPECT_EQ(told(askAnswered("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{")), unreachable);
}

TEST_F(GeminiRelay, TellsThatTheTimeRanOut)
{
    const ScriptedServer mute(localhost(), [](QSslSocket &, const ScriptedServer::Request &) {});
    EXPECT_EQ(told(ask(mute.host(), 100ms)), late);

    const ScriptedServer slow(localhost(), [](QSslSocket &connection, const ScriptedServer::Request &) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{");
    });
    EXPECT_EQ(told(ask(slow.host(), 100ms)), late);

    QTcpServer deaf; // Accepts, and never shakes hands.
    ASSERT_TRUE(deaf.listen(QHostAddress::LocalHost));
    EXPECT_EQ(told(ask(QStringLiteral("localhost:%1").arg(deaf.serverPort()), 100ms)), late);
}

TEST_F(GeminiRelay, DoesNotWaitForAnAnswerThatComesInDrops)
{
    for (const char *drop : {"A: b\r\n", "\r\n\r\n "}) {
        int said = 0;
        const ScriptedServer server(localhost(), dripping("HTTP/1.1 200 OK\r\nServer: slow\r\n", drop, said));
        EXPECT_EQ(told(ask(server.host(), 200ms)), late) << drop;
        EXPECT_LT(said, mostDrops) << drop;
    }
}

TEST_F(GeminiRelay, TakesNoAnswerWithoutEnd)
{
    EXPECT_EQ(told(askAnswered(reply(200, QByteArray(1024 * 1024 + 1, ' ')))), silent);
}

TEST_F(GeminiRelay, GivesTheKeyToNobodyWhoCannotProveTheName)
{
    const TestIdentity another = authority().issue("another.example");
    const TestIdentity expired = authority().issue("localhost", QDateTime::currentDateTimeUtc().addDays(-1));
    const TestAuthority stranger;
    const TestIdentity unknown = stranger.issue("localhost");
    for (const TestIdentity *identity : {&another, &expired, &unknown}) {
        const ScriptedServer server(*identity, sending(reply(200, "{}")));
        EXPECT_EQ(told(ask(server.host())), unreachable);
        EXPECT_EQ(server.requests().size(), 0);
    }
}
