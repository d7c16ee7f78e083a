#include "proxy/RequestReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using testing::HasSubstr;

namespace {

RequestHead goodHead()
{
    return {.device = "mac-unknown",
            .contentType = "application/json",
            .encoding = "",
            .contentLength = "100",
            .isChunked = false};
}

int statusFor(const RequestHead &head)
{
    const std::optional<Answer> refusal = refusalOf(head);
    return refusal ? refusal->status : 0;
}

/// The refusal's two texts, or "taken".
std::string outcome(const QByteArray &body)
{
    const auto read = readPrompt(body);
    if (!std::holds_alternative<Answer>(read))
        return "taken";
    const auto &answer = std::get<Answer>(read);
    EXPECT_EQ(answer.status, 400);
    const auto error = decode<ProxyErrorResponse>(answer.body).record;
    EXPECT_TRUE(error);
    return error ? (error->error + QStringLiteral(": ") + error->message).toStdString() : "no JSON";
}

const QByteArray example = R"({"contents":[{"parts":[{"text":"What is this?"},{}]},{"parts":[]}]})";

/// \a bytes with a few of them changed, taken away, doubled or put in.
QByteArray damaged(QByteArray bytes, std::mt19937 &random)
{
    static const QByteArray telling = R"({}[]",:\ut0-9e.)"
                                      "\xff\xc3\xed\xa0\x80";
    for (auto changes = random() % 6 + 1; changes > 0 && !bytes.isEmpty(); --changes) {
        const auto at = static_cast<qsizetype>(random() % static_cast<size_t>(bytes.size()));
        const char byte = telling[static_cast<qsizetype>(random() % static_cast<size_t>(telling.size()))];
        switch (random() % 5) {
        case 0:
            bytes[at] = byte;
            break;
        case 1:
            bytes.insert(at, byte);
            break;
        case 2:
            bytes.remove(at, static_cast<qsizetype>(random() % 5));
            break;
        case 3:
            bytes.insert(at, bytes.mid(at, static_cast<qsizetype>(random() % 20)));
            break;
        default:
            bytes[at] = static_cast<char>(random());
        }
    }
    return bytes;
}

} // namespace

TEST(RequestHead, OfTheClientIsTaken)
{
    EXPECT_EQ(statusFor(goodHead()), 0);
    RequestHead head = goodHead();
    head.contentType = "Application/JSON; charset=utf-8";
    head.contentLength = "262144";
    EXPECT_EQ(statusFor(head), 0);
    head.contentLength = "";
    head.isChunked = true;
    EXPECT_EQ(statusFor(head), 0);
}

TEST(RequestHead, MustTellADevice)
{
    RequestHead head = goodHead();
    for (const QByteArray &device : {QByteArray(), QByteArray("a b"), QByteArray("a\tb"), QByteArray("\xc3\xa9"),
                                     QByteArray("a\0b", 3), QByteArray(129, 'a')}) {
        head.device = device;
        EXPECT_EQ(statusFor(head), 400) << device.constData();
    }
    head.device = QByteArray(128, 'a');
    EXPECT_EQ(statusFor(head), 0);
}

TEST(RequestHead, MustAnnounceJson)
{
    RequestHead head = goodHead();
    for (const char *type : {"", "text/plain", "multipart/form-data; boundary=x", "application/jsonx", ";"}) {
        head.contentType = type;
        EXPECT_EQ(statusFor(head), 415) << type;
    }
}

TEST(RequestHead, MustNotAnnounceAPackedBody)
{
    RequestHead head = goodHead();
    for (const char *encoding : {"gzip", "deflate", "br", "anything"}) {
        head.encoding = encoding;
        EXPECT_EQ(statusFor(head), 415) << encoding;
    }
}

TEST(RequestHead, MustTellALengthThatFits)
{
    RequestHead head = goodHead();
    const std::pair<const char *, int> rows[]{
        {"", 411},    {"-1", 400}, {"1e3", 400},    {"0x10", 400},
        {"1,1", 400}, {" 1", 400}, {"262145", 413}, {"99999999999999999999999", 413}};
    for (const auto &[length, status] : rows) {
        head.contentLength = length;
        EXPECT_EQ(statusFor(head), status) << length;
    }
}

TEST(RequestReader, TakesWhatTheClientSends)
{
    const auto read = readPrompt(example);

    ASSERT_TRUE(std::holds_alternative<QString>(read));
    EXPECT_EQ(std::get<QString>(read), QStringLiteral("What is this?"));
}

TEST(RequestReader, TakesTheTextsAsTheyStandOneToALine)
{
    const auto read = readPrompt(R"({"contents":[{"parts":[{"text":" A\n"},{},{"text":"B\n"}]}]})");

    ASSERT_TRUE(std::holds_alternative<QString>(read));
    EXPECT_EQ(std::get<QString>(read), QStringLiteral(" A\n\nB\n"));
}

TEST(RequestReader, DropsWhatItDoesNotKnow)
{
    const auto read = readPrompt(R"({"tools":[{"google_search":{}}],"contents":[{"role":"user","parts":[{"text":"A",
                                      "inlineData":{}}]}],"generationConfig":{"maxOutputTokens":99999}})");

    ASSERT_TRUE(std::holds_alternative<QString>(read));
    EXPECT_EQ(std::get<QString>(read), QStringLiteral("A"));
}

TEST(RequestReader, SaysWhatIsWrong)
{
    const std::string could = "bad_request: The request could not be understood. ";
    EXPECT_EQ(outcome(""), could + "The data is not valid JSON.");
    EXPECT_EQ(outcome("hello"), could + "The data is not valid JSON.");
    EXPECT_EQ(outcome("{\"contents\":[{\"parts\":[{\"text\":\"\xff\"}]}]}"), could + "The data is not valid JSON.");
    EXPECT_EQ(outcome(QByteArray(200'000, '[')), could + "The data is not valid JSON.");
    EXPECT_EQ(outcome(QByteArray(100'000, '[') + QByteArray(100'000, ']')),
              could + R"(An object with the key "contents" was expected.)");
    EXPECT_EQ(outcome("{}"), could + R"(The key "contents" is missing.)");
    EXPECT_EQ(outcome(R"({"contents":{}})"), could + R"(The key "contents" must be a list.)");
    EXPECT_EQ(outcome(R"({"contents":[{"parts":[{"text":1}]}]})"), could + R"(The key "text" must be a text.)");
    EXPECT_EQ(outcome(R"({"contents":[]})"), could + "It holds no text.");
    EXPECT_EQ(outcome(R"({"contents":[{"parts":[{"text":" \n"},{}]}]})"), could + "It holds no text.");
}

TEST(RequestReader, SurvivesDamagedRequests)
{
    std::mt19937 random(8);
    int taken = 0;
    for (int round = 0; round < 20'000; ++round) {
        const QByteArray body = damaged(example, random);
        const std::string said = outcome(body);
        if (said == "taken")
            ++taken;
        else
            EXPECT_THAT(said, HasSubstr("bad_request: The request could not be understood. "))
                << body.toHex().constData();
    }
    EXPECT_GT(taken, 0);
    EXPECT_LT(taken, 20'000);
}

TEST(RequestHead, SurvivesAnyBytes)
{
    std::mt19937 random(9);
    const auto bytes = [&] {
        QByteArray text(static_cast<qsizetype>(random() % 40), '\0');
        for (char &byte : text)
            byte = static_cast<char>(random());
        return text;
    };
    for (int round = 0; round < 20'000; ++round) {
        const RequestHead head{.device = bytes(),
                               .contentType = bytes(),
                               .encoding = bytes(),
                               .contentLength = bytes(),
                               .isChunked = random() % 2 == 0};
        EXPECT_GE(statusFor(head), 400);
    }
}
