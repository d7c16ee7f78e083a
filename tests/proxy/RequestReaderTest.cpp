#include "proxy/RequestReader.h"

#include "proxy/Asio.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

using testing::HasSubstr;

namespace tidlo::proxy {
namespace {

constexpr size_t longestBody = 256 * 1024;

/// The header lines of a valid request, by name.
using Lines = std::map<std::string, std::string>;
const Lines goodLines{
    {"X-Device-UUID", "mac-unknown"}, {"Content-Type", "application/json"}, {"Content-Length", "100"}};

/// The status of the answer to a question with the header \a lines; 0 if its body is to be read.
int statusFor(const Lines &lines)
{
    std::string head = "POST /explain HTTP/1.1\r\n";
    for (const auto &[name, value] : lines)
        head += name + ": " + value + "\r\n";
    RequestParser parser;
    parser.body_limit(boost::none);
    error_code error;
    parser.put(boost::asio::buffer(head + "\r\n"), error);
    if (error)
        return 400; // The parser's own status.
    const std::optional<Answer> answer = answerToHead(parser, longestBody);
    return answer ? answer->status : 0;
}

/// The same with \a value for the header \a name.
int statusWith(const std::string &name, const std::string &value)
{
    Lines lines = goodLines;
    lines[name] = value;
    return statusFor(lines);
}

/// The refusal's two texts, or "taken".
std::string outcome(const QByteArray &body)
{
    const auto read = readPrompt(body.toStdString());
    if (!std::holds_alternative<Answer>(read))
        return "taken";
    const auto &answer = std::get<Answer>(read);
    EXPECT_EQ(answer.status, 400);
    const auto error = decode<ProxyErrorResponse>(answer.body).record;
    EXPECT_TRUE(error);
    return error ? (error->error + QStringLiteral(": ") + error->message).toStdString() : "no JSON";
}

const QByteArray example = R"({"contents":[{"parts":[{"text":"What is this?"},{}]},{"parts":[]}]})";

/// \a bytes with a few of them changed, removed, doubled or inserted.
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
    EXPECT_EQ(statusFor(goodLines), 0);
    EXPECT_EQ(statusWith("Content-Type", "Application/JSON ; charset=utf-8"), 0);
    EXPECT_EQ(statusWith("Content-Length", "262144"), 0);
    EXPECT_EQ(
        statusFor({{"X-Device-UUID", "A"}, {"Content-Type", "application/json"}, {"Transfer-Encoding", "chunked"}}), 0);
}

TEST(RequestHead, MustTellADevice)
{
    for (const char *device : {"", "a b", "a\tb", "\xc3\xa9", "a\x7f"})
        EXPECT_EQ(statusWith("X-Device-UUID", device), 400) << device;
    EXPECT_EQ(statusWith("X-Device-UUID", std::string(129, 'a')), 400);
    EXPECT_EQ(statusWith("X-Device-UUID", std::string(128, 'a')), 0);
}

TEST(RequestHead, MustAnnounceJson)
{
    for (const char *type : {"", "text/plain", "multipart/form-data; boundary=x", "application/jsonx", ";"})
        EXPECT_EQ(statusWith("Content-Type", type), 415) << type;
}

TEST(RequestHead, MustNotAnnounceAPackedBody)
{
    for (const char *encoding : {"gzip", "deflate", "br", "anything"})
        EXPECT_EQ(statusWith("Content-Encoding", encoding), 415) << encoding;
}

TEST(RequestHead, MustTellALengthThatFits)
{
    const std::pair<const char *, int> rows[]{
        {"", 400},    {"-1", 400},  {"1e3", 400},    {"0x10", 400},
        {"1,2", 400}, {"1 1", 400}, {"262145", 413}, {"99999999999999999999999", 400}};
    for (const auto &[length, status] : rows)
        EXPECT_EQ(statusWith("Content-Length", length), status) << length;
    EXPECT_EQ(statusFor({{"X-Device-UUID", "A"}, {"Content-Type", "application/json"}}), 411);
}

TEST(RequestReader, TakesWhatTheClientSends)
{
    const auto read = readPrompt(example.toStdString());

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
    EXPECT_EQ(outcome(QByteArray(200'000, '[')), could + "The data is nested too deeply.");
    EXPECT_EQ(outcome(QByteArray(100'000, '[') + QByteArray(100'000, ']')), could + "The data is nested too deeply.");
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
    for (int round = 0; round < 20'000; ++round) {
        Lines lines = goodLines;
        for (auto &[name, value] : lines) {
            value.resize(random() % 40);
            for (char &byte : value)
                byte = static_cast<char>(random());
        }
        EXPECT_GE(statusFor(lines), 400);
    }
}

} // namespace tidlo::proxy
