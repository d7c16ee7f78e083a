#include "ai/ExplainTest.h"
#include "support/WaitUntil.h"

#include <QCoreApplication>
#include <QTimer>

namespace tidlo {

using namespace std::chrono_literals;

namespace {

using Bounds = ExplainTest;

const QByteArray answerOfA = R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})";
const std::string tooLarge = requestFailed + "The reply is too large.";
const std::string compressed = requestFailed + "The reply is compressed.";
const QByteArray block(64 * 1024, 'x');
const QByteArray header = "X: " + QByteArray(60, 'y') + "\r\n";
const QByteArray chunk = "10\r\n" + QByteArray(16, ' ') + "\r\n";
const QByteArray chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
const std::string timedOut = requestFailed + "The request timed out.";

/// A successful answer of exactly \a size bytes.
QByteArray answerOfSize(qsizetype size)
{
    return answerOfA + QByteArray(size - answerOfA.size(), ' ');
}

QByteArray inChunks(const QByteArray &body, qsizetype size, const QByteArray &extension = {})
{
    QByteArray reply = chunked;
    for (qsizetype i = 0; i < body.size(); i += size) {
        const QByteArray part = body.mid(i, size);
        reply += QByteArray::number(part.size(), 16) + extension + "\r\n" + part + "\r\n";
    }
    return reply + "0\r\n\r\n";
}

/// Sends \a beginning, and then \a bytes again and again until the connection ends.
ScriptedServer::Script repeating(const QByteArray &beginning, const QByteArray &bytes)
{
    return [=](QSslSocket &connection, const ScriptedServer::Request &) {
        connection.write(beginning);
        auto *timer = new QTimer(&connection);
        QObject::connect(timer, &QTimer::timeout, &connection, [&connection, bytes] {
            if (connection.bytesToWrite() == 0)
                connection.write(bytes);
        });
        timer->start(1ms);
    };
}

} // namespace

TEST_F(Bounds, AreThereFromTheStart)
{
    EXPECT_EQ(ExplainEndpoint().timeLimit, 60s);
    EXPECT_EQ(ExplainEndpoint().replyLimit, 1'048'576);
}

TEST_F(Bounds, OfTimeEndWhatTheServerLeavesUnanswered)
{
    const ScriptedServer server(localhost(), [](QSslSocket &, const ScriptedServer::Request &) {});
    endpoint.timeLimit = 500ms;

    EXPECT_EQ(explainBy(server), timedOut);
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(Bounds, OfTimeEndWhatTheServerDrips)
{
    endpoint.timeLimit = 500ms;
    for (const char *beginning : {"HTTP/1.1 200", "HTTP/1.1 200 OK\r\nX-Slow: ", "HTTP/1.1 103 Early Hints\r\nX-Slow: ",
                                  "HTTP/1.1 200 OK\r\n\r\n", "HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n"}) {
        const ScriptedServer server(localhost(), repeating(beginning, " "));

        EXPECT_EQ(explainBy(server), timedOut) << beginning;
    }
}

TEST_F(Bounds, OfTimeAreReachedWhenTheApplicationQuits)
{
    const ScriptedServer server(localhost(), [](QSslSocket &, const ScriptedServer::Request &) { qApp->quit(); });
    endpoint.host = server.host();
    std::optional<QString> explanation;

    GeminiClient::explain({}, endpoint).then([&](const std::optional<QString> &text) { explanation = text; });
    QCoreApplication::exec();
    waitUntil([&] { return explanation.has_value(); });

    EXPECT_EQ(explanation.value_or(QString()).toStdString(), requestFailed + "The application quit.");
}

TEST_F(Bounds, OfSizeAllowAReplyOfAMegabyte)
{
    const QByteArray body = answerOfSize(endpoint.replyLimit);

    EXPECT_EQ(explainAnswered(reply(200, body)), "A");
    EXPECT_EQ(explainAnswered("HTTP/1.1 200 OK\r\n\r\n" + body), "A");
    EXPECT_EQ(explainAnswered(inChunks(body, 64)), "A");
}

TEST_F(Bounds, OfSizeAllowAQuarterMegabyteAroundIt)
{
    const QByteArray body = answerOfSize(endpoint.replyLimit);
    const QByteArray headers = "X: " + QByteArray(60'000, 'x') + "\r\n";
    const qsizetype most = 256 * 1024;
    const qsizetype encryption = 32 * 1024; // An upper limit of what it takes.

    EXPECT_EQ(explainAnswered("HTTP/1.1 103 Early Hints\r\n" + headers + "\r\n" + reply(200, body, headers)), "A");
    EXPECT_EQ(explainAnswered(inChunks(body, body.size(), ";" + QByteArray(most - encryption, 'x'))), "A");
    EXPECT_EQ(explainAnswered(inChunks(body, body.size(), ";" + QByteArray(most, 'x'))), tooLarge);
}

TEST_F(Bounds, OfSizeAllowNoMore)
{
    const QByteArray body = answerOfSize(endpoint.replyLimit + 1);

    EXPECT_EQ(explainAnswered(reply(200, body)), tooLarge);
    EXPECT_EQ(explainAnswered(reply(500, body)), tooLarge);
    EXPECT_EQ(explainAnswered(reply(302, body)), tooLarge);
    EXPECT_EQ(explainAnswered("HTTP/1.1 200 OK\r\n\r\n" + body), tooLarge);
    EXPECT_EQ(explainAnswered(inChunks(body, body.size())), tooLarge);
    EXPECT_EQ(explainAnswered(inChunks(answerOfSize(500'000), 1)), tooLarge);
}

TEST_F(Bounds, OfSizeCountWhateverNeverEnds)
{
    struct Row
    {
        const char *what;
        QByteArray beginning;
        QByteArray repeated;
    };
    const Row rows[]{
        {"a body", "HTTP/1.1 200 OK\r\n\r\n", block},
        {"chunks", chunked, chunk.repeated(1'000)},
        {"the extension of a chunk", chunked + "1;", block},
        {"trailers", chunked + "0\r\n", header.repeated(1'000)},
    };
    for (const Row &row : rows) {
        const ScriptedServer server(localhost(), repeating(row.beginning, row.repeated));

        EXPECT_EQ(explainBy(server), tooLarge) << row.what;
    }
}

TEST_F(Bounds, OfSizeHoldForWhateverTheLibraryRefusesEarlier)
{
    struct Row
    {
        const char *what;
        QByteArray beginning;
        QByteArray repeated;
    };
    const Row rows[]{
        {"the size of a chunk", chunked, QByteArray("0").repeated(10'000)},
        {"empty lines for a size", chunked, QByteArray("\r\n").repeated(1'000)},
        {"a trailer", chunked + "0\r\nX: ", block},
        {"headers", "HTTP/1.1 200 OK\r\n", header.repeated(1'000)},
        {"a header", "HTTP/1.1 200 OK\r\nX: ", block},
        {"the lines of a header", "HTTP/1.1 200 OK\r\nX: y\r\n", (" " + header).repeated(1'000)},
        {"a status line", "HTTP/1.1 200 ", block},
        {"what is no status", "", block},
        {"empty lines for a status", "", QByteArray("\r\n").repeated(1'000)},
        {"interim replies", "", QByteArray("HTTP/1.1 103 Early Hints\r\n\r\n").repeated(1'000)},
        {"the headers of an interim reply", "HTTP/1.1 103 Early Hints\r\n", header.repeated(1'000)},
    };
    for (const Row &row : rows) {
        const ScriptedServer server(localhost(), repeating(row.beginning, row.repeated));

        EXPECT_NE(explainBy(server), timedOut) << row.what;
    }
}

TEST_F(Bounds, RefuseWhateverIsCompressed)
{
    for (const QByteArray coding :
         {"Content-Encoding: gzip", "content-encoding:br", "CONTENT-ENCODING: identity",
          "Content-Encoding:", "Transfer-Encoding: gzip", "Transfer-Encoding: gzip, chunked", "transfer-encoding:zstd",
          "Transfer-Encoding:  chunked, gzip", "Transfer-Encoding: chunked\r\nTransfer-Encoding: deflate"}) {
        EXPECT_EQ(explainAnswered(reply(200, answerOfA, coding + "\r\n")), compressed) << coding.constData();
        EXPECT_EQ(explainAnswered(reply(500, answerOfA, coding + "\r\n")), compressed) << coding.constData();
    }
}

} // namespace tidlo
