#include "proxy/ModelRelay.h"

#include "ai/ScriptedServer.h"
#include "proxy/Certificate.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QFutureWatcher>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <QtConcurrentRun>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <openssl/crypto.h>

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;

namespace tidlo::proxy {
namespace {

const std::string question = R"({"contents":[{"parts":[{"text":"Why \u00e9?"}]}]})";

/// The answer of the relay to \a upstream for \a body. Blocks the thread.
Answer relayed(const std::string &body, const Upstream &upstream, std::chrono::milliseconds timeLimit)
{
    asio::io_context loop{1};
    asio::thread_pool pool{1};
    const ModelRelay relay(&pool, upstream, tlsOfAClient(), timeLimit);
    Answer given;
    asio::co_spawn(loop, relay.answer(body), [&](const std::exception_ptr &failure, const Answer &answer) {
        EXPECT_FALSE(failure);
        given = answer;
    });
    loop.run();
    return given;
}

/// A test with scripted replies of the model's server, over TLS.
class ModelRelayTest : public testing::Test
{
protected:
    ModelRelayTest()
    {
        QFile file(QFile::decodeName(trusted));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(authority().certificate()) > 0);
        qputenv("SSL_CERT_FILE", trusted);
    }
    ~ModelRelayTest() override
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

    /// The answer of the relay if the model's server is \a host.
    Answer ask(const QString &host, std::chrono::milliseconds timeLimit = 100s)
    {
        upstream.baseUrl = scheme + QStringLiteral("://") + host;
        QFutureWatcher<Answer> watcher;
        QEventLoop loop;
        QObject::connect(&watcher, &QFutureWatcher<Answer>::finished, &loop, &QEventLoop::quit);
        watcher.setFuture(QtConcurrent::run([=, this] {
            const Answer answer = relayed(question, upstream, timeLimit);
            OPENSSL_thread_stop(); // The pool's thread may end later than the library.
            return answer;
        }));
        loop.exec();
        return watcher.result();
    }

    /// The answer of the relay if the model's server sends \a bytes and closes the connection.
    Answer askAnswered(const QByteArray &bytes)
    {
        const ScriptedServer server(localhost(), sending(bytes));
        return ask(server.host());
    }

    /// Makes the server one of chat completions.
    void chat() { upstream = {.dialect = Dialect::chat, .key = {}, .model = QStringLiteral("m:1"), .baseUrl = {}}; }

    Upstream upstream{.key = QStringLiteral("secret-key")};
    QString scheme = QStringLiteral("https");

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

/// Sends \a start and then \a drop again and again, for much longer than any test waits. Counts them in \a said.
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

TEST_F(ModelRelayTest, AsksTheModelWithTheKeyInAHeaderAlone)
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
    EXPECT_EQ(request.headers.at("Connection"), "close");
}

TEST_F(ModelRelayTest, AsksTheModelAndServerOfItsSettings)
{
    upstream.model = QStringLiteral("other-2");
    const ScriptedServer server(localhost(), sending(reply(200, "{}")));

    ask(server.host() + QStringLiteral("/base/"));

    ASSERT_EQ(server.requests().size(), 1);
    EXPECT_EQ(server.requests().first().target, "/base/v1beta/models/other-2:generateContent");
}

TEST_F(ModelRelayTest, KeepsTheTextsAlone)
{
    const Answer answer = askAnswered(reply(200, R"({"candidates":[{"content":{"role":"model","parts":[{"text":"A"},
        {"functionCall":{}},{"text":"B\n"}]},"finishReason":"STOP","safetyRatings":[]}],"usageMetadata":{"total":5},
        "modelVersion":"x"})"));

    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.body, R"({"candidates":[{"content":{"parts":[{"text":"A"},{},{"text":"B\n"}]}}]})");
}

TEST_F(ModelRelayTest, AsksAServerOfChatCompletions)
{
    chat();
    const QByteArray said = R"({"id":"1","choices":[{"index":0,"message":{"role":"assistant","content":"A\nB"},
        "finish_reason":"stop"},{"message":{"content":"C"}}],"usage":{"total_tokens":5}})";
    const ScriptedServer server(localhost(), sending(reply(200, said)));

    const Answer answer = ask(server.host() + QStringLiteral("/v1"));
    upstream.key = QStringLiteral("secret-key");
    ask(server.host() + QStringLiteral("/v1/"));

    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.body, R"({"candidates":[{"content":{"parts":[{"text":"A\nB"}]}}]})");
    ASSERT_EQ(server.requests().size(), 2);
    const ScriptedServer::Request &request = server.requests().first();
    EXPECT_EQ(request.target, "/v1/chat/completions");
    EXPECT_EQ(request.body,
              QByteArray("{\"messages\":[{\"content\":\"Why \u00e9?\",\"role\":\"user\"}],\"model\":\"m:1\"}"));
    EXPECT_EQ(request.headers.count("Authorization"), 0U);
    EXPECT_EQ(server.requests().last().target, "/v1/chat/completions");
    EXPECT_EQ(server.requests().last().headers.at("Authorization"), "Bearer secret-key");
}

TEST_F(ModelRelayTest, TellsThatAServerOfChatCompletionsSaidNothing)
{
    chat();
    for (const char *body : {R"({"choices":[]})", R"({"choices":[{"message":{"content":null}}]})", "<html>", "",
                             R"({"choices":[{"message":{"content":""}}]})", R"({"choices":{"0":{"message":"A"}}})"})
        EXPECT_EQ(told(askAnswered(reply(200, body))), silent) << body;
    const QByteArray deep = QByteArray(1024 * 1024 - 100, '[');
    EXPECT_EQ(told(askAnswered(reply(200, R"({"choices":[{"message":{"content":)" + deep))), silent);
}

TEST_F(ModelRelayTest, RelaysNoBodyThatIsNoQuestion)
{
    const Answer answer = relayed("{}", upstream, 100s);

    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(answer.error, "bad_request");
}

TEST_F(ModelRelayTest, AsksInPlainOnThisMachineAlone)
{
    chat();
    scheme = QStringLiteral("http");
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::AnyIPv4));
    int connections = 0;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        ++connections;
        QTcpSocket *connection = server.nextPendingConnection();
        connection->write(reply(200, R"({"choices":[{"message":{"content":"A"}}]})"));
    });
    const auto at = [&](const char *host) {
        return QStringLiteral("%1:%2").arg(QLatin1String(host)).arg(server.serverPort());
    };

    EXPECT_EQ(ask(at("localhost")).status, 200);
    EXPECT_EQ(ask(at("127.0.0.2")).status, 200);
    EXPECT_EQ(told(ask(at("0.0.0.0"))), unreachable);
    EXPECT_EQ(connections, 2);
}

TEST_F(ModelRelayTest, PassesOverRepliesBeforeTheLast)
{
    const QByteArray said = reply(200, R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})");

    EXPECT_EQ(askAnswered("HTTP/1.1 103 Early\r\nA: b\r\n\r\nHTTP/1.1 100 Continue\r\n\r\n" + said).status, 200);
    EXPECT_EQ(told(askAnswered("HTTP/1.1 100 Continue\r\n\r\n")), unreachable);
}

TEST_F(ModelRelayTest, TakesNoAnswerThatIsPacked)
{
    const QByteArray said = R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})";

    EXPECT_EQ(told(askAnswered(reply(200, said, "Content-Encoding: gzip\r\n"))), silent);
}

TEST_F(ModelRelayTest, TellsThatNothingWasSaid)
{
    for (const char *body :
         {R"({"candidates":[]})", R"({"promptFeedback":{"blockReason":"SAFETY"}})", "<html>", "",
          R"({"candidates":[{"finishReason":"SAFETY"}]})", R"({"candidates":[{"content":{"parts":[{"text":""}]}}]})",
          R"({"candidates":[{"content":{"parts":[]}},{"content":{"parts":[{"text":"B"}]}}]})"})
        EXPECT_EQ(told(askAnswered(reply(200, body))), silent) << body;
}

TEST_F(ModelRelayTest, TellsFailuresOfTheModelInWordsForAPerson)
{
    const QByteArray details = R"({"error":{"message":"secret details"}})";
    const std::string refused =
        "502 upstream_refused The AI service is not set up correctly. Please tell whoever runs it.";
    const std::string busy =
        "502 upstream_busy The AI model has too much to do at the moment. Please try again in a few minutes.";
    const std::string failed = "502 upstream_failed The AI model could not answer. Please try again later.";

    for (const Dialect dialect : {Dialect::gemini, Dialect::chat}) {
        upstream.dialect = dialect;
        for (const int status : {400, 401, 403, 404})
            EXPECT_EQ(told(askAnswered(reply(status, details))), refused) << status;
        for (const int status : {429, 503})
            EXPECT_EQ(told(askAnswered(reply(status, details))), busy) << status;
        for (const int status : {201, 302, 402, 500, 502, 599})
            EXPECT_EQ(told(askAnswered(reply(status, details))), failed) << status;
    }
}

TEST_F(ModelRelayTest, DoesNotFollowRedirects)
{
    const ScriptedServer other(localhost(), sending(reply(200, "{}")));
    const QByteArray location = "Location: https://" + other.host().toUtf8() + "/\r\n";

    askAnswered(reply(307, "", location));

    EXPECT_EQ(other.connections(), 0);
}

TEST_F(ModelRelayTest, TellsThatNobodyIsThere)
{
    ScriptedServer server(localhost(), sending(""));
    server.close();

    EXPECT_EQ(told(ask(server.host())), unreachable);
    EXPECT_EQ(told(ask(QStringLiteral("does-not-exist.invalid"))), unreachable);
}

TEST_F(ModelRelayTest, TellsThatTheAnswerBrokeOff)
{
    EXPECT_EQ(told(askAnswered("")), unreachable);
    EXPECT_EQ(told(askAnswered("nonsense\r\n\r\n")), unreachable);
    EXPECT_EQ(told(askAnswered("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{")), unreachable);
}

TEST_F(ModelRelayTest, TellsThatTheTimeRanOut)
{
    const ScriptedServer mute(localhost(), [](QSslSocket &, const ScriptedServer::Request &) {});
    EXPECT_EQ(told(ask(mute.host(), 100ms)), late);

    const ScriptedServer slow(localhost(), [](QSslSocket &connection, const ScriptedServer::Request &) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{");
    });
    EXPECT_EQ(told(ask(slow.host(), 100ms)), late);

    QTcpServer deaf; // Accepts connections, but makes no TLS handshake.
    ASSERT_TRUE(deaf.listen(QHostAddress::LocalHost));
    EXPECT_EQ(told(ask(QStringLiteral("localhost:%1").arg(deaf.serverPort()), 100ms)), late);
}

TEST_F(ModelRelayTest, DoesNotWaitForAnAnswerThatComesInDrops)
{
    for (const char *drop : {"A: b\r\n", "\r\n\r\n "}) {
        upstream.dialect = upstream.dialect == Dialect::gemini ? Dialect::chat : Dialect::gemini;
        int said = 0;
        const ScriptedServer server(localhost(), dripping("HTTP/1.1 200 OK\r\nServer: slow\r\n", drop, said));
        EXPECT_EQ(told(ask(server.host(), 200ms)), late) << drop;
        EXPECT_LT(said, mostDrops) << drop;
    }
}

TEST_F(ModelRelayTest, TakesAnAnswerOfTheGreatestLength)
{
    const QByteArray said = R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})";
    const QByteArray longest = said + QByteArray(1024 * 1024 - said.size(), ' ');

    EXPECT_EQ(askAnswered(reply(200, longest)).status, 200);
    EXPECT_EQ(told(askAnswered(reply(200, longest + ' '))), silent);
}

TEST_F(ModelRelayTest, TakesNoAnswerWithoutEnd)
{
    constexpr qint64 most = 100'000'000;
    const QByteArray chunk = "10000;" + QByteArray(0x2000, 'a') + "\r\n" + QByteArray(0x10000, ' ') + "\r\n";
    const std::pair<QByteArray, QByteArray> endless[]{
        {"HTTP/1.1 200 OK\r\n\r\n", QByteArray(65'536, ' ')},
        {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n", chunk},
        {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n", "1;" + QByteArray(4'096, 'a') + "\r\n \r\n"},
        {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n1;", QByteArray(65'536, 'a')},
        {"HTTP/1.1 200 OK\r\nA: ", QByteArray(65'536, 'a')},
        {"", "HTTP/1.1 103 Early\r\nA: " + QByteArray(4'096, 'a') + "\r\n\r\n"}};
    for (const auto &answer : endless) {
        qint64 sent = 0;
        const ScriptedServer server(localhost(), [&](QSslSocket &connection, const ScriptedServer::Request &) {
            connection.write(answer.first);
            QObject::connect(&connection, &QSslSocket::encryptedBytesWritten, &connection, [&](qint64) {
                while (connection.bytesToWrite() + connection.encryptedBytesToWrite() < 1'000'000 && sent < most)
                    sent += connection.write(answer.second);
                if (sent >= most)
                    connection.disconnectFromHost();
            });
            sent += connection.write(answer.second);
        });
        const std::string said = told(ask(server.host()));
        EXPECT_TRUE(said == silent || said == unreachable) << said;
        EXPECT_LT(sent, most / 2) << answer.first.constData(); // The system's own buffers take a few MB.
    }
}

TEST_F(ModelRelayTest, GivesTheKeyToNobodyWhoCannotProveTheName)
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

} // namespace tidlo::proxy
