#include "ai/ExplainTest.h"

namespace tidlo {

namespace {

/// A successful reply whose first candidate has these parts.
QByteArray parts(const QByteArray &list)
{
    return reply(200, R"({"candidates":[{"content":{"parts":[)" + list + "]}}]}");
}

using Answer = ExplainTest;

} // namespace

TEST_F(Answer, IsTheTextOfAllPartsThatHaveOneJoinedByLineFeeds)
{
    EXPECT_EQ(explainAnswered(parts(R"({"text":"A"},{},{"text":"B"})")), "A\nB");
    EXPECT_EQ(explainAnswered(parts(R"({"text":"A"},{"text":null},{"other":1},{"text":"B"})")), "A\nB");
    EXPECT_EQ(explainAnswered(parts(R"({"text":"alone"})")), "alone");
}

TEST_F(Answer, IsNotTrimmed)
{
    EXPECT_EQ(explainAnswered(parts(R"({"text":" A\n"},{"text":"\t"},{"text":""})")), " A\n\n\t\n");
    EXPECT_EQ(explainAnswered(parts(R"({"text":""},{"text":""})")), "\n");
}

TEST_F(Answer, ComesFromTheFirstCandidateAlone)
{
    EXPECT_EQ(explainAnswered(reply(200, R"({"candidates":[{"content":{"parts":[{"text":"first"}]}},
                                                           {"content":{"parts":[{"text":"second"}]}}]})")),
              "first");
    EXPECT_EQ(explainAnswered(reply(200, R"({"candidates":[{"content":{"parts":[]}},
                                                           {"content":{"parts":[{"text":"second"}]}}]})")),
              "absent");
}

TEST_F(Answer, IsAbsentWhenNothingWasSaid)
{
    EXPECT_EQ(explainAnswered(reply(200, R"({"candidates":[]})")), "absent");
    EXPECT_EQ(explainAnswered(parts("")), "absent");
    EXPECT_EQ(explainAnswered(parts("{}")), "absent");
    EXPECT_EQ(explainAnswered(parts(R"({"text":null},{})")), "absent");
    EXPECT_EQ(explainAnswered(parts(R"({"text":""})")), "absent");
}

TEST_F(Answer, MayComeWithMoreThanIsKnown)
{
    EXPECT_EQ(explainAnswered(reply(200, R"({"usage":{"tokens":[1,2]},"candidates":[{"index":0,"finish":"STOP",
                                             "content":{"role":"model","parts":[{"text":"A","thought":true}]}}]})")),
              "A");
}

TEST_F(Answer, IsPassedOnAsItCameWhateverItHolds)
{
    EXPECT_EQ(
        explainAnswered(parts(R"({"text":"<img src=x> [a](javascript:b) \u001b[31m \u202e \ud83d\ude00 %1 \\n"})")),
        "<img src=x> [a](javascript:b) \x1b[31m \u202e \U0001F600 %1 \\n");
    EXPECT_EQ(explainAnswered(parts(R"({"text":"before\u0000after"})")), std::string("before\0after", 12));
}

TEST_F(Answer, MayComeWithAnySuccessfulStatus)
{
    for (int status = 200; status <= 299; ++status) {
        if (status == 204 || status == 205) // These two come without a body.
            continue;
        const QByteArray answer = parts(R"({"text":"A"})").replace("200", QByteArray::number(status));
        EXPECT_EQ(explainAnswered(answer), "A") << status;
    }
    EXPECT_EQ(explainAnswered("HTTP/1.1 204 No Content\r\n\r\n"), requestFailed + "The data is not valid JSON.");
}

TEST_F(Answer, MayBeChunkedOrEndWithTheConnection)
{
    const QByteArray json = R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})";
    const QByteArray size = QByteArray::number(json.size(), 16);

    EXPECT_EQ(explainAnswered("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + size + "\r\n" + json +
                              "\r\n0\r\n\r\n"),
              "A");
    EXPECT_EQ(explainAnswered("HTTP/1.0 200 OK\r\n\r\n" + json), "A");
    EXPECT_EQ(explainAnswered("HTTP/1.1 100 Continue\r\n\r\n" + reply(200, json)), "A");
}

TEST_F(Answer, ThatCannotBeDecodedIsAnErrorThatSaysWhy)
{
    struct Row
    {
        QByteArray body;
        std::string reason;
    };
    const std::string noJson = "The data is not valid JSON.";
    const Row rows[]{
        {"", noJson},
        {"   ", noJson},
        {"<html>Busy</html>", noJson},
        {R"({"candidates":[)", noJson},
        {R"({"candidates":[]} x)", noJson},
        {QByteArray(1000, '\0'), noJson},
        {QByteArray("{\"candidates\":[]\0}", 18), noJson},
        {"{\"candidates\":[{\"content\":{\"parts\":[{\"text\":\"\xff\"}]}}]}", noJson},
        {R"({"candidates":[{"content":{"parts":[{"text":"\ud83d"}]}}]})", noJson},
        {"null", R"(An object with the key "candidates" was expected.)"},
        {"[]", R"(An object with the key "candidates" was expected.)"},
        {R"("candidates")", R"(An object with the key "candidates" was expected.)"},
        {"{}", R"(The key "candidates" is missing.)"},
        {R"({"Candidates":[]})", R"(The key "candidates" is missing.)"},
        {R"({"candidates":null})", R"(The key "candidates" must be a list.)"},
        {R"({"candidates":{}})", R"(The key "candidates" must be a list.)"},
        {R"({"candidates":[null]})", R"(An object with the key "content" was expected.)"},
        {R"({"candidates":[{}]})", R"(The key "content" is missing.)"},
        {R"({"candidates":[{"content":[]}]})", R"(An object with the key "parts" was expected.)"},
        {R"({"candidates":[{"content":{}}]})", R"(The key "parts" is missing.)"},
        {R"({"candidates":[{"content":{"parts":"A"}}]})", R"(The key "parts" must be a list.)"},
        {R"({"candidates":[{"content":{"parts":["A"]}}]})", R"(An object with the key "text" was expected.)"},
        {R"({"candidates":[{"content":{"parts":[{"text":1}]}}]})", R"(The key "text" must be a text.)"},
        {R"({"candidates":[{"content":{"parts":[{"text":"A"}]}},{}]})", R"(The key "content" is missing.)"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(explainAnswered(reply(200, row.body)), requestFailed + row.reason) << row.body.left(80).constData();
}

TEST_F(Answer, ThatIsNestedOrFilledBeyondAllMeasureIsAnErrorThatSaysSo)
{
    EXPECT_EQ(explainAnswered(reply(200, QByteArray(1'000'000, '['))),
              requestFailed + "The data is nested too deeply.");
    EXPECT_EQ(explainAnswered(parts("{}" + QByteArray(",{}").repeated(300'000))),
              requestFailed + "The data holds too many values.");
}

} // namespace tidlo
