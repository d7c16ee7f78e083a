#include "ai/GeminiRecords.h"

#include <gtest/gtest.h>

namespace tidlo {

namespace {

GeminiGenerateRequest requestOf(const QList<GeminiPart> &parts)
{
    const GeminiContent content{.parts = parts};
    return {.contents = {content}};
}

} // namespace

TEST(GeminiRecords, AreWrittenCompactly)
{
    EXPECT_EQ(encode(requestOf({{QStringLiteral("Hello")}})), R"({"contents":[{"parts":[{"text":"Hello"}]}]})");
    EXPECT_EQ(encode(GeminiGenerateRequest{}), R"({"contents":[]})");
    EXPECT_EQ(encode(requestOf({})), R"({"contents":[{"parts":[]}]})");
}

TEST(GeminiRecords, AreWrittenWithoutATextThatIsAbsent)
{
    EXPECT_EQ(encode(requestOf({{}, {QString()}})), R"({"contents":[{"parts":[{},{"text":""}]}]})");
}

TEST(GeminiRecords, AreReadAsTheyWereWritten)
{
    const GeminiGenerateRequest request =
        requestOf({{QStringLiteral("quote \" backslash \\ slash / \n\t\u0001\u0000 \u00e9 \U0001F600 \u2028")}, {}});

    const auto decoded = decode<GeminiGenerateRequest>(encode(request));

    EXPECT_EQ(decoded.record, request) << decoded.error.toStdString();
}

TEST(GeminiRecords, AreWrittenEvenWhenATextIsBroken)
{
    const QString loneSurrogate(QChar(0xd83d));

    const auto decoded = decode<GeminiGenerateRequest>(encode(requestOf({{loneSurrogate}})));

    ASSERT_TRUE(decoded.record);
    EXPECT_EQ(decoded.record->contents.at(0).parts.at(0).text, QStringLiteral("?"));
}

TEST(GeminiRecords, OfTheProxyAreWrittenInTheSameShapes)
{
    const GeminiContent content{.parts = {{QStringLiteral("A")}, {}}};
    const GeminiCandidate candidate{.content = content};
    const GeminiGenerateResponse response{.candidates = {candidate}};

    EXPECT_EQ(encode(response), R"({"candidates":[{"content":{"parts":[{"text":"A"},{}]}}]})");
    EXPECT_EQ(encode(ProxyErrorResponse{.error = QStringLiteral("e"), .message = QStringLiteral("\"m\"")}),
              R"({"error":"e","message":"\"m\""})");
}

TEST(GeminiRecords, NeedAllTheirKeys)
{
    EXPECT_EQ(decode<GeminiGenerateRequest>("{}").error, QStringLiteral("The key \"contents\" is missing."));
    EXPECT_EQ(decode<GeminiGenerateResponse>("{}").error, QStringLiteral("The key \"candidates\" is missing."));
    EXPECT_EQ(decode<ProxyErrorResponse>(R"({"message":"m"})").error, QStringLiteral("The key \"error\" is missing."));
    EXPECT_EQ(decode<ProxyErrorResponse>(R"({"error":"e"})").error, QStringLiteral("The key \"message\" is missing."));
}

TEST(GeminiRecords, TakeTheLastOfAKeyThatComesTwice)
{
    const auto decoded = decode<ProxyErrorResponse>(R"({"error":"e","message":"first","message":"last"})");

    ASSERT_TRUE(decoded.record);
    EXPECT_EQ(decoded.record->message, QStringLiteral("last"));
}

TEST(GeminiRecords, IgnoreAnErrorInAKeyThatOccursAgain)
{
    const auto decoded = decode<GeminiGenerateRequest>(
        R"({"contents":"text","contents":[{"parts":[{"text":1}],"parts":[{"text":[{"text":"deep"}],"text":"last"}]}]})");

    EXPECT_EQ(decoded.record, requestOf({{QStringLiteral("last")}})) << decoded.error.toStdString();
}

} // namespace tidlo
