#include "proxy/ExplainServer.h"

#include "proxy/RawConnection.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <random>
#include <thread>

#include <boost/asio/post.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/write.hpp>

using namespace std::chrono_literals;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace tidlo::proxy {
namespace {

const QByteArray question = R"({"contents":[{"parts":[{"text":"Why?"}]}]})";

Task<Answer> echo(std::string body)
{
    const auto prompt = readPrompt(body);
    const auto *refused = std::get_if<Answer>(&prompt);
    co_return refused != nullptr ? *refused : explanation(std::get<QString>(prompt));
}

Task<Answer> fail(std::string)
{
    throw std::runtime_error("secret");
    co_return Answer();
}

/// Headers of a client that sends its body only when it is asked to.
const QByteArray waiting = "X-Device-UUID: A\r\nExpect: 100-continue\r\n";

/// A server without TLS that runs while this object exists.
class RunningServer final
{
public:
    explicit RunningServer(Explain explain = echo, const Limits &limits = {})
        : server(listening(), nullptr, std::move(explain), limits)
        , thread([this] { loop.run(); })
    {}
    ~RunningServer() { stop(); }
    RunningServer(const RunningServer &) = delete;
    RunningServer &operator=(const RunningServer &) = delete;

    /// Runs \a before on the serving thread, then stops the server. Waits for both.
    void stop(const std::function<void()> &before = [] {})
    {
        std::promise<void> done;
        asio::post(loop, [&] {
            before();
            server.stop();
            done.set_value();
        });
        if (thread.joinable())
            done.get_future().wait();
    }
    /// Waits until the server has ended by itself.
    void join() { thread.join(); }
    std::string say(const QByteArray &bytes) const { return RawConnection(port).send(bytes).toEnd().toStdString(); }
    bool isHealthy() const { return say("GET /healthz HTTP/1.1\r\n\r\n").ends_with(R"({"status":"ok"})"); }

    int port = 0;

private:
    tcp::acceptor listening()
    {
        tcp::acceptor acceptor(loop, {asio::ip::address_v4::loopback(), 0});
        port = acceptor.local_endpoint().port();
        return acceptor;
    }

    asio::io_context loop{1};
    ExplainServer server;
    std::jthread thread;
};

/// A reply with this status whose body is a JSON error with both keys.
auto isError(int status, const char *error)
{
    return AllOf(StartsWith("HTTP/1.1 " + std::to_string(status) + ' '),
                 HasSubstr("\r\nContent-Type: application/json\r\n"),
                 HasSubstr("\r\n\r\n{\"error\":\"" + std::string(error) + "\",\"message\":\""), EndsWith("\"}"));
}

} // namespace

TEST(ExplainServer, AnswersAQuestion)
{
    const RunningServer server;

    EXPECT_THAT(server.say(explainRequest(question)),
                AllOf(StartsWith("HTTP/1.1 200 OK\r\n"), HasSubstr("\r\nConnection: close\r\n"),
                      HasSubstr("\r\nContent-Type: application/json\r\n"), HasSubstr("\r\nCache-Control: no-store\r\n"),
                      EndsWith("\r\n\r\n"
                               R"({"candidates":[{"content":{"parts":[{"text":"Why?"}]}}]})")));
}

TEST(ExplainServer, AnswersAQuestionInChunks)
{
    const RunningServer server(echo, {.toRead = 1h, .toClose = 20ms});
    const QByteArray head = "POST /explain HTTP/1.1\r\nContent-Type: application/json\r\nX-Device-UUID: A\r\n"
                            "Transfer-Encoding: chunked\r\n\r\n";
    const QByteArray chunk = QByteArray::number(question.size(), 16) + "\r\n" + question + "\r\n";

    EXPECT_THAT(server.say(head + chunk + "0\r\n\r\n"), HasSubstr(R"("text":"Why?")"));
    EXPECT_THAT(server.say(head + "-1\r\n\r\n"), isError(400, "bad_request"));
    EXPECT_THAT(server.say(head + "zzz\r\n\r\n"), isError(400, "bad_request"));
    EXPECT_THAT(server.say(head + "1;" + QByteArray(20'000, 'a')), isError(400, "bad_request")) << "a line without end";
    QByteArray small;
    while (small.size() < 600'000)
        small += "1\r\nx\r\n";
    EXPECT_THAT(server.say(head + small), isError(413, "too_long")) << "a small body in many chunks";
    const QByteArray endless = "40000\r\n" + QByteArray(0x40000, 'x') + "\r\n1\r\nx\r\n";
    EXPECT_THAT(server.say(head + endless), isError(413, "too_long"));
}

TEST(ExplainServer, TellsThatItRuns)
{
    const RunningServer server;

    EXPECT_THAT(server.say("GET /healthz HTTP/1.1\r\n\r\n"),
                AllOf(StartsWith("HTTP/1.1 200 OK\r\n"), EndsWith(R"({"status":"ok"})")));
    EXPECT_THAT(server.say("HEAD /healthz HTTP/1.1\r\n\r\n"),
                AllOf(StartsWith("HTTP/1.1 200 OK\r\n"), EndsWith("\r\n\r\n")));
}

TEST(ExplainServer, TellsWhatIsWrongAsJson)
{
    const RunningServer server(echo, {.toClose = 20ms}); // Some requests announce more than they send.
    const QByteArray json = "Content-Type: application/json\r\n";
    const QByteArray device = "X-Device-UUID: A\r\n";
    struct Row
    {
        QByteArray request;
        int status;
        const char *error;
    };
    const Row rows[]{
        {"GET / HTTP/1.1\r\n\r\n", 404, "not_found"},
        {"POST /other HTTP/1.1\r\nContent-Length: 1000000000000\r\n\r\n", 404, "not_found"},
        {"GET /../explain HTTP/1.1\r\n\r\n", 404, "not_found"},
        {"GET /explain HTTP/1.1\r\n\r\n", 405, "not_allowed"},
        {"POST /healthz HTTP/1.1\r\n\r\n", 405, "not_allowed"},
        {"PUT /explain HTTP/1.1\r\nContent-Length: 1000000000000\r\n\r\n", 405, "not_allowed"},
        {explainRequest(question, ""), 400, "no_device"},
        {explainRequest(question, "X-Device-UUID: \r\n"), 400, "no_device"},
        {"POST /explain HTTP/1.1\r\n" + device + "Content-Length: 2\r\n\r\n{}", 415, "not_json"},
        {"POST /explain HTTP/1.1\r\n" + device +
             "Content-Type: multipart/form-data; boundary=x\r\nContent-Length: "
             "2\r\n\r\n{}",
         415, "not_json"},
        {"BREW /explain HTTP/1.1\r\n\r\n", 501, "unknown_method"},
        {"POST /explain HTTP/1.1\r\n" + device + json + "Content-Length: 2\r\nContent-Length: 3\r\n\r\n{} ", 400,
         "bad_request"},
        {"POST /explain HTTP/1.1\r\n" + device + json + "\r\n" + question, 411, "no_length"},
        {"POST /explain HTTP/1.1\r\n" + device + json + "Content-Length: two\r\n\r\n{}", 400, "bad_request"},
        {explainRequest("not JSON"), 400, "bad_request"},
        {explainRequest("{}"), 400, "bad_request"},
        {explainRequest(""), 400, "bad_request"},
        {"nonsense\r\n\r\n", 400, "bad_request"},
        {"GET /" + QByteArray(9'000, 'a') + " HTTP/1.1\r\n\r\n", 414, "too_long"},
    };
    for (const Row &row : rows)
        EXPECT_THAT(server.say(row.request), isError(row.status, row.error)) << row.request.left(200).constData();
}

TEST(ExplainServer, TurnsDownALongBodyBeforeReadingIt)
{
    const RunningServer server;
    const QByteArray head = "POST /explain HTTP/1.1\r\nContent-Type: application/json\r\nX-Device-UUID: A\r\n";

    EXPECT_THAT(server.say(head + "Content-Length: 262145\r\n\r\n"), isError(413, "too_long"));
    EXPECT_THAT(server.say(head + "Content-Length: 1000000\r\n\r\n" + QByteArray(1'000'000, 'x')),
                isError(413, "too_long"));
}

TEST(ExplainServer, TakesABodyOfTheGreatestLength)
{
    const RunningServer server;
    QByteArray body = question;
    body.insert(body.indexOf("Why?"), QByteArray(256 * 1024 - body.size(), 'w'));

    EXPECT_THAT(server.say(explainRequest(body)), StartsWith("HTTP/1.1 200 "));
    EXPECT_THAT(server.say(explainRequest(body + ' ')), isError(413, "too_long"));
}

TEST(ExplainServer, TakesNoBodyThatIsPacked)
{
    const RunningServer server;
    const QByteArray packed = qCompress(question).mid(4);

    EXPECT_THAT(server.say(explainRequest(packed, "X-Device-UUID: A\r\nContent-Encoding: deflate\r\n")),
                isError(415, "packed"));
}

TEST(ExplainServer, AsksForTheBodyOfAClientThatWaitsToBeAsked)
{
    const RunningServer server;

    EXPECT_THAT(server.say(explainRequest(question, waiting)),
                AllOf(StartsWith("HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\n"), HasSubstr("Why?")));
}

TEST(ExplainServer, AsksForNoBodyThatItWouldTurnDown)
{
    const RunningServer server(echo, {.toClose = 20ms, .perMinute = 1});

    EXPECT_THAT(server.say("POST /explain HTTP/1.1\r\nContent-Type: application/json\r\n" + waiting +
                           "Content-Length: 262145\r\n\r\n"),
                isError(413, "too_long"));
    EXPECT_THAT(server.say("POST /other HTTP/1.1\r\n" + waiting + "Content-Length: 1\r\n\r\n"),
                isError(404, "not_found"));
    EXPECT_THAT(server.say(explainRequest(question, waiting)), HasSubstr("Why?")) << "none of these counts";
}

TEST(ExplainServer, LetsADeviceAskAsOftenAsItMay)
{
    const RunningServer server(echo, {.perMinute = 2});
    const QByteArray request = explainRequest(question);
    EXPECT_THAT(server.say(request), StartsWith("HTTP/1.1 200 "));
    EXPECT_THAT(server.say(request), StartsWith("HTTP/1.1 200 "));

    const std::string refusal = server.say(request);

    EXPECT_THAT(refusal, isError(429, "too_often"));
    constexpr const char *oneToSixty = "([1-9]|[1-5][0-9]|60)";
    EXPECT_THAT(refusal, testing::ContainsRegex(std::string("\r\nRetry-After: ") + oneToSixty + "\r\n"));
    EXPECT_THAT(refusal, testing::ContainsRegex(std::string("Please wait ") + oneToSixty + " seconds? and try again"));
    EXPECT_THAT(server.say(explainRequest(question, "X-Device-UUID: B\r\n")), StartsWith("HTTP/1.1 200 "));
    EXPECT_TRUE(server.isHealthy());
}

TEST(ExplainServer, CountsWhatIsAskedAtTheSameTime)
{
    const RunningServer server(echo, {.perMinute = 50});
    std::atomic<int> answers = 0;
    {
        std::vector<std::jthread> clients;
        for (int client = 0; client < 8; ++client) {
            clients.emplace_back([&] {
                for (int request = 0; request < 20; ++request)
                    answers += server.say(explainRequest(question)).starts_with("HTTP/1.1 200 ") ? 1 : 0;
            });
        }
    }
    EXPECT_EQ(answers, 50);
}

TEST(ExplainServer, AnswersInOnePieceWhateverRangesAreAskedFor)
{
    const RunningServer server;
    QByteArray ranges = "Range: bytes=0-0";
    while (ranges.size() < 8'000)
        ranges += ",0-0";

    EXPECT_THAT(server.say("GET /healthz HTTP/1.1\r\n" + ranges + "\r\n\r\n"),
                AllOf(StartsWith("HTTP/1.1 200 "), EndsWith("\r\n\r\n{\"status\":\"ok\"}")));
}

TEST(ExplainServer, SurvivesAFailureOfItsOwn)
{
    const RunningServer server(fail);

    const std::string reply = server.say(explainRequest(question));

    EXPECT_THAT(reply, AllOf(isError(500, "failed"), Not(HasSubstr("secret"))));
    EXPECT_TRUE(server.isHealthy());
}

TEST(ExplainServer, EndsConnectionsThatAreSlowOrStopHalfway)
{
    const RunningServer server(echo, {.toRead = 50ms, .toClose = 50ms});
    const QByteArray request = explainRequest(question);

    EXPECT_EQ(server.say(""), "");
    EXPECT_THAT(server.say("PO"), isError(408, "not_whole"));
    EXPECT_THAT(server.say(request.left(40)), isError(408, "not_whole"));
    EXPECT_THAT(server.say(request.chopped(1)), isError(408, "not_whole"));
}

TEST(ExplainServer, TakesNoHeadersBeyondMeasure)
{
    const RunningServer server(echo, {.toClose = 100ms});
    const auto withHeaders = [](qsizetype bytes) {
        QByteArray request = "GET /healthz HTTP/1.1\r\n";
        while (request.size() < bytes)
            request += "A: b\r\n";
        return request + "\r\n";
    };

    EXPECT_THAT(server.say(withHeaders(15'000)), StartsWith("HTTP/1.1 200 "));
    EXPECT_THAT(server.say(withHeaders(17'000)), isError(431, "too_long"));
    EXPECT_THAT(server.say("GET /healthz HTTP/1.1\r\nA: " + QByteArray(600'000, 'b')), isError(431, "too_long"));
    EXPECT_TRUE(server.isHealthy());
}

TEST(ExplainServer, AnswersWhileManyConnectionsDoNothing)
{
    const RunningServer server;
    std::vector<std::unique_ptr<RawConnection>> idle;
    for (int number = 0; number < 200; ++number)
        idle.push_back(std::make_unique<RawConnection>(server.port));

    EXPECT_THAT(server.say(explainRequest(question)), StartsWith("HTTP/1.1 200 "));
}

TEST(ExplainServer, TellsWhichMethodsThereAre)
{
    const RunningServer server;

    EXPECT_THAT(server.say("PUT /explain HTTP/1.1\r\n\r\n"), HasSubstr("\r\nAllow: POST\r\n"));
    EXPECT_THAT(server.say("POST /healthz HTTP/1.1\r\n\r\n"), HasSubstr("\r\nAllow: GET, HEAD\r\n"));
}

TEST(ExplainServer, TakesALastChunkThatComesByteByByte)
{
    const RunningServer server;
    RawConnection client(server.port);
    client.send("POST /explain HTTP/1.1\r\nContent-Type: application/json\r\nTransfer-Encoding: chunked\r\n" + waiting +
                "\r\n");
    client.next(); // It has read the head.
    for (const char byte : QByteArray("2\r\n{}\r\n0\r\n\r\n"))
        client.send(QByteArray(1, byte));

    EXPECT_THAT(client.toEnd().toStdString(), isError(400, "bad_request"));
}

TEST(ExplainServer, HasRoomForSmallBodiesWhenAllTheRestIsTaken)
{
    const RunningServer server(echo, {.toRead = 300ms, .toClose = 20ms, .allBodiesBytes = 0});
    const auto asked = [](qsizetype size) {
        return explainRequest(question + QByteArray(size - question.size(), ' '));
    };

    EXPECT_THAT(server.say(asked(8'192)), StartsWith("HTTP/1.1 200 "));
    EXPECT_THAT(server.say(asked(8'193)), isError(503, "busy"));
}

TEST(ExplainServer, LetsALongBodyWaitUntilAnotherIsAnswered)
{
    const RunningServer server(echo, {.toRead = 10s, .allBodiesBytes = 300'000});
    const QByteArray request = explainRequest(question + QByteArray(250'000, ' '));
    RawConnection first(server.port);
    RawConnection second(server.port);
    first.send(request.left(140'000));
    second.send(request.left(140'000));
    EXPECT_TRUE(server.isHealthy()) << "and has read what there was by then";

    first.send(request.mid(140'000));
    second.send(request.mid(140'000));

    EXPECT_THAT(first.toEnd().toStdString(), StartsWith("HTTP/1.1 200 "));
    EXPECT_THAT(second.toEnd().toStdString(), StartsWith("HTTP/1.1 200 "));
}

TEST(ExplainServer, HasRoomAgainForALongBodyWhileTheClientOfAnAnsweredOneStays)
{
    const RunningServer server(echo, {.toRead = 2s, .toClose = 10min, .allBodiesBytes = 300'000});
    const QByteArray request = explainRequest(question + QByteArray(250'000, ' '));
    RawConnection first(server.port);
    EXPECT_THAT(first.send(request).next().toStdString(), StartsWith("HTTP/1.1 200 "));

    EXPECT_THAT(server.say(request), StartsWith("HTTP/1.1 200 "));
}

TEST(ExplainServer, TurnsAwayAnAddressThatHasManyConnections)
{
    const RunningServer server(echo, {.connectionsOfAddress = 2});
    RawConnection first(server.port);
    {
        const RawConnection second(server.port);
        EXPECT_EQ(server.say("GET /healthz HTTP/1.1\r\n\r\n"), "");
    }
    while (!server.isHealthy()) { // Until it has noticed that the second connection is closed.
    }
}

TEST(ExplainServer, AcceptsMoreWhenThereIsAPlaceAgain)
{
    const RunningServer server(echo, {.toRead = 100ms, .connections = 2});
    const RawConnection first(server.port);
    const RawConnection second(server.port);

    EXPECT_TRUE(server.isHealthy()) << "as soon as their time is over";
}

TEST(ExplainServer, FinishesWhatIsUnderWayWhenItStops)
{
    RunningServer server(echo, {.toRead = 1h, .toBegin = 20ms});
    RawConnection idle(server.port);
    RawConnection busy(server.port);
    const QByteArray request = explainRequest(question, waiting);
    busy.send(request.chopped(question.size()));
    EXPECT_THAT(busy.next().toStdString(), StartsWith("HTTP/1.1 100 ")) << "it has read what there is";

    server.stop();
    EXPECT_EQ(idle.toEnd(), "") << "nothing was asked there";
    busy.send(question);

    EXPECT_THAT(busy.toEnd().toStdString(), StartsWith("HTTP/1.1 200 "));
    server.join();
}

TEST(ExplainServer, LetsWhoHasConnectedAskWhenItStops)
{
    RunningServer server(echo, {.toBegin = 1h});
    auto early = std::make_unique<RawConnection>(server.port);
    asio::io_context own;
    tcp::socket late(own);

    server.stop([&] { late.connect({asio::ip::address_v4::loopback(), static_cast<unsigned short>(server.port)}); });
    early->send(explainRequest(question));
    EXPECT_THAT(early->toEnd().toStdString(), StartsWith("HTTP/1.1 200 "));
    early.reset();
    asio::write(late, asio::buffer(explainRequest(question).toStdString()));
    std::string said;
    error_code end;
    asio::read(late, asio::dynamic_buffer(said), end);
    EXPECT_THAT(said, StartsWith("HTTP/1.1 200 ")) << "although nobody had accepted it";
    late.close();
    server.join();
}

TEST(ExplainServer, StopsByItselfWhenNobodyAsksForLong)
{
    RunningServer server(echo, {.idle = 1s});
    EXPECT_TRUE(server.isHealthy());

    server.join();
}

TEST(ExplainServer, LogsNeitherWhoAsksNorWhat)
{
    testing::internal::CaptureStderr();
    {
        const RunningServer server;
        server.say(explainRequest(R"({"contents":[{"parts":[{"text":"private"}]}]})", "X-Device-UUID: private\r\n"));
        server.say(explainRequest("private", "X-Device-UUID: private\r\n"));
        server.say("GET /private?private HTTP/1.1\r\nprivate: private\r\n\r\n");
    }
    const std::string log = testing::internal::GetCapturedStderr();

    EXPECT_EQ(log, "/explain 200\n/explain 400 bad_request\nother 404 not_found\n");
}

TEST(ExplainServer, SurvivesDamagedRequests)
{
    const RunningServer server(echo, {.toRead = 20ms, .toClose = 1ms});
    const QByteArray seeds[]{explainRequest(question),
                             "POST /explain HTTP/1.1\r\nContent-Type: application/json\r\nX-Device-UUID: A\r\n"
                             "Transfer-Encoding: chunked\r\nExpect: 100-continue\r\n\r\n2\r\n{}\r\n0\r\n\r\n",
                             "GET /healthz?a=%41%zz&b HTTP/1.1\r\nRange: bytes=1-2,3-4\r\nAccept-Encoding: br\r\n\r\n"};
    static const QByteArray telling("\r\n\0:;,=%-/ 9fgzPHA\xff", 20);
    std::mt19937 random(8);
    const auto below = [&](qsizetype end) { return static_cast<qsizetype>(random() % static_cast<size_t>(end)); };
    for (int round = 0; round < 1'500; ++round) {
        QByteArray request = seeds[below(3)];
        for (qsizetype changes = below(5) + 1; changes > 0 && !request.isEmpty(); --changes) {
            const qsizetype at = below(request.size());
            if (random() % 2 == 0)
                request[at] = telling[below(telling.size())];
            else if (random() % 2 == 0)
                request.insert(at, request.mid(below(request.size()), below(30)));
            else
                request.remove(at, below(10));
        }
        const std::string reply = server.say(request);
        EXPECT_THAT(reply, testing::AnyOf("", StartsWith("HTTP/1.1 "))) << request.toHex().constData();
    }
    EXPECT_TRUE(server.isHealthy());
}

} // namespace tidlo::proxy
