#include "ai/ExplainTest.h"

#include <QCoreApplication>
#include <QTcpServer>
#include <QTimer>

#include <gmock/gmock.h>

#include <zlib.h>

using namespace std::chrono_literals;
using testing::StartsWith;

namespace {

using Transfer = ExplainTest;

const QByteArray answerOfA = R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})";

/// A successful answer of exactly \a size bytes.
QByteArray answerOfSize(qsizetype size)
{
    return answerOfA + QByteArray(size - answerOfA.size(), ' ');
}

QByteArray gzipped(QByteArray data)
{
    constexpr int gzipFormat = 16;
    z_stream stream{};
    EXPECT_EQ(deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, MAX_WBITS + gzipFormat, 8, Z_DEFAULT_STRATEGY),
              Z_OK);
    QByteArray packed(static_cast<qsizetype>(deflateBound(&stream, data.size())), '\0');
    stream.next_in = reinterpret_cast<Bytef *>(data.data());
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    packed.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return packed;
}

/// Writes \a bytes again and again for as long as the connection lasts.
void repeat(QSslSocket &connection, const QByteArray &bytes)
{
    auto *timer = new QTimer(&connection);
    QObject::connect(timer, &QTimer::timeout, &connection, [&connection, bytes] {
        if (connection.bytesToWrite() == 0)
            connection.write(bytes);
    });
    timer->start(1ms);
}

/// Sends \a beginning, and then \a bytes for ever.
ScriptedServer::Script repeating(const QByteArray &beginning, const QByteArray &bytes)
{
    return [=](QSslSocket &connection, const ScriptedServer::Request &) {
        connection.write(beginning);
        repeat(connection, bytes);
    };
}

/// Answers whatever it receives with the same bytes, without TLS.
class PlainServer final
{
public:
    explicit PlainServer(const QByteArray &answer)
    {
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this, answer] {
            QTcpSocket *connection = server.nextPendingConnection();
            QObject::connect(connection, &QTcpSocket::readyRead, &server, [this, answer, connection] {
                bytes += connection->readAll();
                connection->write(answer);
                connection->disconnectFromHost();
            });
        });
    }

    QString host() const { return QStringLiteral("localhost:%1").arg(server.serverPort()); }
    const QByteArray &received() const { return bytes; }

private:
    QTcpServer server;
    QByteArray bytes;
};

void stayingSilent(QSslSocket &, const ScriptedServer::Request &) {}

} // namespace

TEST_F(Transfer, HasItsBoundsFromTheStart)
{
    EXPECT_EQ(endpoint.timeLimit, 60s);
    EXPECT_EQ(endpoint.replyLimit, 1'048'576);
    EXPECT_EQ(endpoint.host.toStdString(), TIDLO_AI_PROXY_HOST);
}

TEST_F(Transfer, NeedsAnAuthorityThatIsTrusted)
{
    const TestAuthority stranger;
    const ScriptedServer server(stranger.issue("localhost"), sending(reply(200, answerOfA)));

    EXPECT_THAT(explainBy(server), StartsWith(requestFailed + "SSL handshake failed"));
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(Transfer, NeedsTheAuthorityThatTheEnvironmentNames)
{
    const ScriptedServer server(localhost(), sending(reply(200, answerOfA)));
    ASSERT_EQ(explainBy(server), "A");

    qunsetenv("SSL_CERT_FILE");

    EXPECT_THAT(explainBy(server), StartsWith(requestFailed + "SSL handshake failed"));
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(Transfer, NeedsACertificateForTheName)
{
    const ScriptedServer server(authority().issue("elsewhere.example"), sending(reply(200, answerOfA)));

    EXPECT_THAT(explainBy(server), StartsWith(requestFailed + "SSL handshake failed"));
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(Transfer, NeedsACertificateThatIsStillAndAlreadyValid)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const ScriptedServer expired(authority().issue("localhost", now.addSecs(-60)), sending(reply(200, answerOfA)));
    const ScriptedServer early(authority().issue("localhost", now.addDays(2)), sending(reply(200, answerOfA)));

    EXPECT_THAT(explainBy(expired), StartsWith(requestFailed + "SSL handshake failed"));
    EXPECT_THAT(explainBy(early), StartsWith(requestFailed + "SSL handshake failed"));
    EXPECT_TRUE(expired.requests().isEmpty());
    EXPECT_TRUE(early.requests().isEmpty());
}

TEST_F(Transfer, NeedsAServerThatSpeaksTls)
{
    const PlainServer server(reply(200, answerOfA));
    endpoint.host = server.host();

    EXPECT_THAT(explain(), StartsWith(requestFailed + "SSL handshake failed"));
    EXPECT_FALSE(server.received().isEmpty());
    EXPECT_FALSE(server.received().contains("X-Device-UUID"));
}

TEST_F(Transfer, GoesThroughTheProxyOfTheSystemWhichLearnsTheNameAlone)
{
    const PlainServer proxy("HTTP/1.1 502 Bad gateway\r\n\r\n");
    qputenv("https_proxy", "http://" + proxy.host().toUtf8());
    endpoint.host = QStringLiteral("explain.example");

    EXPECT_THAT(explain(), StartsWith(requestFailed));
    EXPECT_TRUE(proxy.received().startsWith("CONNECT explain.example:443 HTTP/1.")) << proxy.received().constData();
    EXPECT_FALSE(proxy.received().contains("X-Device-UUID"));
}

TEST_F(Transfer, FailsWhenNobodyListens)
{
    ScriptedServer server(localhost(), sending(reply(200, answerOfA)));
    server.close();

    EXPECT_EQ(explainBy(server), requestFailed + "Connection refused");
}

TEST_F(Transfer, IsNotAttemptedWithoutAProperAddress)
{
    for (const char *host : {"", "two words", "localhost:99999", "[::1", "a%zz"}) {
        endpoint.host = QString::fromLatin1(host);
        EXPECT_EQ(explain(), "absent") << host;
    }
}

TEST_F(Transfer, EndsWhenTheServerStaysSilent)
{
    const ScriptedServer server(localhost(), stayingSilent);
    endpoint.timeLimit = 500ms;

    EXPECT_EQ(explainBy(server), requestFailed + "The request timed out.");
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(Transfer, EndsInTimeAlthoughTheServerDrips)
{
    endpoint.timeLimit = 500ms;
    for (const char *beginning : {"", "HTTP/1.1 200 OK\r\nX-Slow: ", "HTTP/1.1 200 OK\r\n\r\n",
                                  "HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n"}) {
        const ScriptedServer server(localhost(), repeating(beginning, " "));

        EXPECT_EQ(explainBy(server), requestFailed + "The request timed out.") << beginning;
    }
}

TEST_F(Transfer, EndsWhenTheApplicationQuits)
{
    const ScriptedServer server(localhost(), [](QSslSocket &, const ScriptedServer::Request &) { qApp->quit(); });
    endpoint.host = server.host();
    std::optional<QString> explanation;

    GeminiClient::explain({}, endpoint).then([&](const std::optional<QString> &text) { explanation = text; });
    QCoreApplication::exec();

    EXPECT_EQ(explanation.value_or(QString()).toStdString(), requestFailed + "The application quit.");
}

TEST_F(Transfer, TakesAReplyUpToTheLimit)
{
    const qint64 limit = endpoint.replyLimit;

    EXPECT_EQ(explainAnswered(reply(200, answerOfSize(limit))), "A");
    EXPECT_EQ(explainAnswered("HTTP/1.1 200 OK\r\n\r\n" + answerOfSize(limit)), "A");
    EXPECT_EQ(explainAnswered(reply(200, gzipped(answerOfSize(limit)), "Content-Encoding: gzip\r\n")), "A");
}

TEST_F(Transfer, FailsWhenTheReplyIsLarger)
{
    const QByteArray body = answerOfSize(endpoint.replyLimit + 1);
    const std::string tooLarge = requestFailed + "The reply is too large.";

    EXPECT_EQ(explainAnswered(reply(200, body)), tooLarge);
    EXPECT_EQ(explainAnswered(reply(500, body)), tooLarge);
    EXPECT_EQ(explainAnswered("HTTP/1.1 200 OK\r\n\r\n" + body), tooLarge);
    EXPECT_EQ(explainAnswered(reply(200, gzipped(body), "Content-Encoding: gzip\r\n")), tooLarge);
}

TEST_F(Transfer, FailsWhenTheReplyNeverEnds)
{
    const ScriptedServer server(localhost(), repeating("HTTP/1.1 200 OK\r\n\r\n", QByteArray(64 * 1024, ' ')));

    EXPECT_EQ(explainBy(server), requestFailed + "The reply is too large.");
}

TEST_F(Transfer, FailsBeforeABombIsUnpacked)
{
    const QByteArray charge = gzipped(QByteArray(8 * 1024 * 1024, ' '));
    const QByteArray bomb = gzipped(QByteArray(200 * 1024 * 1024, ' '));

    EXPECT_EQ(explainAnswered(reply(200, charge, "Content-Encoding: gzip\r\n")),
              requestFailed + "The reply is too large.");
    EXPECT_THAT(explainAnswered(reply(200, bomb, "Content-Encoding: gzip\r\n")),
                StartsWith(requestFailed + "Decompression failed"));
}

TEST_F(Transfer, FailsWhenTheCompressionIsBroken)
{
    EXPECT_THAT(explainAnswered(reply(200, answerOfA, "Content-Encoding: gzip\r\n")),
                StartsWith(requestFailed + "Decompression failed"));
    EXPECT_EQ(explainAnswered(reply(200, gzipped(answerOfA).chopped(12), "Content-Encoding: gzip\r\n")),
              requestFailed + "The data is not valid JSON.");
}

TEST_F(Transfer, FailsWhenTheConnectionIsCutWhateverTheStatus)
{
    const QByteArray error = R"({"error":"e","message":"m"})";
    for (const int status : {200, 299, 302, 400, 401, 404, 407, 429, 500, 503, 599, 600}) {
        const QByteArray &body = status < 400 ? answerOfA : error;
        const QByteArray line = "HTTP/1.1 " + QByteArray::number(status) + " Said\r\n";

        EXPECT_EQ(explainAnswered(line + "Content-Length: 1000\r\n\r\n" + body), requestFailed + "Connection closed")
            << status;
        EXPECT_EQ(explainAnswered(line + "Transfer-Encoding: chunked\r\n\r\n" + QByteArray::number(body.size(), 16) +
                                  "\r\n" + body + "\r\n"),
                  requestFailed + "Connection closed")
            << status;
    }
}

TEST_F(Transfer, FailsAndIsNotTriedAgainWhenNoAnswerCame)
{
    for (const char *bytes : {"", "H", "HTTP/1.1 200 OK\r\nContent-Le", "no HTTP at all\r\n\r\n",
                              "HTTP/1.1 abc OK\r\n\r\n", "HTTP/1.1 100 Continue\r\n\r\n"}) {
        const ScriptedServer server(localhost(), sending(bytes));

        EXPECT_THAT(explainBy(server), StartsWith(requestFailed)) << bytes;
        EXPECT_EQ(server.requests().size(), 1) << bytes;
        EXPECT_EQ(server.connections(), 1) << bytes;
    }
    const ScriptedServer garbage(localhost(), sending(QByteArray(4096, '\0')));
    EXPECT_THAT(explainBy(garbage), StartsWith(requestFailed));
}
