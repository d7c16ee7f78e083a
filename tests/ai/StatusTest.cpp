#include "ai/ExplainTest.h"

#include <gmock/gmock.h>

namespace tidlo {

using testing::StartsWith;

namespace {

std::string unavailable(int status)
{
    return "\u26A0\uFE0F AI service unavailable (HTTP " + std::to_string(status) +
           "). Please check your internet connection.";
}

using Status = ExplainTest;

} // namespace

TEST_F(Status, OfAnErrorShowsTheMessageOfTheProxy)
{
    EXPECT_EQ(explainAnswered(reply(429, R"({"error":"rate_limited","message":"Too many requests, try later."})")),
              "\u26A0\uFE0F Too many requests, try later.");
    EXPECT_EQ(explainAnswered(reply(500, R"({"message":"","error":""})")), "\u26A0\uFE0F ");
    EXPECT_EQ(explainAnswered(reply(503, R"({"message":"<b>%1</b>","error":"x","more":[1]})")),
              "\u26A0\uFE0F <b>%1</b>");
}

TEST_F(Status, OfAnErrorIsToldWhenTheProxySaysNothingThatCanBeRead)
{
    EXPECT_EQ(explainAnswered(reply(500, R"({"error":"oops"})")), unavailable(500));
    EXPECT_EQ(explainAnswered(reply(500, R"({"message":"oops"})")), unavailable(500));
    EXPECT_EQ(explainAnswered(reply(502, "<html>Bad gateway</html>")), unavailable(502));
    EXPECT_EQ(explainAnswered(reply(400, "")), unavailable(400));
    EXPECT_EQ(explainAnswered(reply(404, R"({"error":null,"message":"oops"})")), unavailable(404));
    EXPECT_EQ(explainAnswered(reply(404, R"({"error":404,"message":"oops"})")), unavailable(404));
    EXPECT_EQ(explainAnswered(reply(429, R"(["error","message"])")), unavailable(429));
    EXPECT_EQ(explainAnswered(reply(599, QByteArray(10'000, '['))), unavailable(599));
}

TEST_F(Status, From400To599IsAnError)
{
    const QByteArray said = R"({"error":"e","message":"m"})";
    for (int status = 400; status <= 599; ++status) {
        EXPECT_EQ(explainAnswered(reply(status, said)), "\u26A0\uFE0F m") << status;
        EXPECT_EQ(explainAnswered(reply(status, "no JSON")), unavailable(status));
    }
}

TEST_F(Status, OfAnyOtherKindGivesNoExplanation)
{
    const QByteArray said = R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}],"error":"e","message":"m"})";
    for (int status = 300; status <= 399; ++status)
        EXPECT_EQ(explainAnswered(reply(status, said)), "absent") << status;
    for (const int status : {600, 700, 999})
        EXPECT_EQ(explainAnswered(reply(status, said)), "absent") << status;
}

TEST_F(Status, HasThreeDigits)
{
    for (const int status : {0, 99, 1200, 99999})
        EXPECT_THAT(explainAnswered(reply(status, "")), StartsWith(requestFailed)) << status;
}

TEST_F(Status, InThe100sIsPassedOverForTheFinalOne)
{
    const QByteArray final = reply(200, R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})");
    const QByteArray hints = "HTTP/1.1 103 Early Hints\r\nLink: </style.css>; rel=preload\r\n\r\n";

    EXPECT_EQ(explainAnswered("HTTP/1.1 100 Continue\r\n\r\n" + final), "A");
    EXPECT_EQ(explainAnswered("HTTP/1.1 102 Processing\r\n\r\n" + final), "A");
    EXPECT_EQ(explainAnswered(hints + hints + final), "A");
    EXPECT_EQ(explainAnswered(hints + "HTTP/1.1 302 Found\r\nContent-Length: 0\r\n\r\n"), "absent");
    EXPECT_EQ(explainAnswered(hints + reply(500, R"({"error":"e","message":"m"})")), "\u26A0\uFE0F m");
}

TEST_F(Status, InThe100sGivesNoExplanationWhereNoOtherFollows)
{
    for (int status = 100; status <= 199; ++status) {
        const QByteArray head = "HTTP/1.1 " + QByteArray::number(status) + " Said\r\n\r\n";
        EXPECT_EQ(explainAnswered(head), "absent") << status;
        EXPECT_EQ(explainAnswered(head + "and a body, which it cannot have"), "absent") << status;
    }
}

TEST_F(Status, ThatSwitchesToAnotherProtocolIsTheFinalOneWhateverFollows)
{
    const QByteArray said = R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})";
    EXPECT_EQ(explainAnswered("HTTP/1.1 101 Switching Protocols\r\n\r\n" + reply(200, said)), "absent");
}

TEST_F(Status, ThatAsksForAPasswordIsAnErrorLikeAnyOther)
{
    for (const char *scheme :
         {"Basic realm=\"x\"", "Digest realm=\"x\", nonce=\"y\"", "NTLM", "Negotiate", "Unheard"}) {
        for (const char *header : {"WWW-Authenticate: ", "Proxy-Authenticate: "}) {
            const int status = *header == 'W' ? 401 : 407;
            const ScriptedServer server(localhost(), sending(reply(status, R"({"error":"e","message":"Sign in"})",
                                                                   QByteArray(header) + scheme + "\r\n")));

            EXPECT_EQ(explainBy(server), "\u26A0\uFE0F Sign in") << scheme;
            EXPECT_EQ(server.requests().size(), 1) << scheme;
        }
    }
}

} // namespace tidlo
