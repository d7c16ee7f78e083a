#include "ai/BoundedJson.h"

#include <gtest/gtest.h>

#include <array>

namespace tidlo {

namespace {

constexpr std::array<std::string_view, 2> keys{"a", "b"};

/// The values that are kept, or why the input is refused.
std::string read(const QByteArray &json)
{
    const auto [document, refusal] = readBoundedJson(json, keys);
    return refusal.isEmpty() ? document.dump() : refusal.toStdString();
}

QByteArray nested(int levels, const QByteArray &open, const QByteArray &close)
{
    return open.repeated(levels) + close.repeated(levels);
}

/// A list of this many numbers.
QByteArray listOf(int count)
{
    return '[' + QByteArray("0,").repeated(count - 1) + "0]";
}

const std::string tooDeep = "The data is nested too deeply.";
const std::string tooMany = "The data holds too many values.";
const std::string noJson = "The data is not valid JSON.";

} // namespace

TEST(BoundedJson, KeepsTheValuesOfTheKeysThatAreAskedFor)
{
    EXPECT_EQ(read(R"({"a":"text","b":[1,2.5,true,null,{"a":[]}],"B":0})"),
              R"({"a":"text","b":[1,2.5,true,null,{"a":[]}]})");
    EXPECT_EQ(read(" \"alone\" "), "\"alone\"");
}

TEST(BoundedJson, DropsOthersWithAllThatIsInThem)
{
    EXPECT_EQ(read(R"({"c":{"a":1,"d":[[{"b":2}],"a"]},"a":3,"d":"a"})"), R"({"a":3})");
    EXPECT_EQ(read(R"([{"c":[{"a":1}]},{"b":{"c":0}}])"), R"([{},{"b":{}}])");
}

TEST(BoundedJson, KeepsTheLastOfAKeyThatComesTwice)
{
    EXPECT_EQ(read(R"({"a":{"a":1,"b":2},"b":0,"a":{"b":3},"c":1,"c":2})"), R"({"a":{"b":3},"b":0})");
    EXPECT_EQ(read(R"({"a":[1,2],"a":null})"), R"({"a":null})");
}

TEST(BoundedJson, Takes64Levels)
{
    EXPECT_EQ(read(nested(64, "[", "]")), nested(64, "[", "]").toStdString());
    EXPECT_EQ(read(nested(65, "[", "]")), tooDeep);
    EXPECT_EQ(read(nested(100'000, "[", "]")), tooDeep);
    EXPECT_EQ(read(QByteArray(1'000'000, '[')), tooDeep);
}

TEST(BoundedJson, CountsLevelsThatAreDroppedToo)
{
    EXPECT_EQ(read("{\"c\":" + nested(63, "[", "]") + ",\"a\":1}"), R"({"a":1})");
    EXPECT_EQ(read("{\"c\":" + nested(64, "[", "]") + ",\"a\":1}"), tooDeep);
    EXPECT_EQ(read(QByteArray("{\"c\":").repeated(65)), tooDeep);
}

TEST(BoundedJson, Takes10000Values)
{
    EXPECT_EQ(read(listOf(9'999)), listOf(9'999).toStdString());
    EXPECT_EQ(read(listOf(10'000)), tooMany);
    EXPECT_EQ(read("[" + QByteArray("{},").repeated(10'000) + "{}]"), tooMany);
    EXPECT_EQ(read("[" + QByteArray("[],").repeated(10'000) + "[]]"), tooMany);
}

TEST(BoundedJson, CountsValuesThatAreDroppedOrReplacedToo)
{
    EXPECT_EQ(read("{\"c\":" + listOf(9'997) + ",\"a\":1}"), R"({"a":1})");
    EXPECT_EQ(read("{\"c\":" + listOf(9'998) + ",\"a\":1}"), tooMany);
    EXPECT_EQ(read("{" + QByteArray("\"a\":\"\",").repeated(10'000) + "\"a\":1}"), tooMany);
}

TEST(BoundedJson, RefusesWhatIsNoJson)
{
    for (const char *bytes : {"", "{", "{\"a\":}", "[1 2]", "[1]]", "nul", "\"\\ud83d\"", "[1e999]", "// a\n1"})
        EXPECT_EQ(read(bytes), noJson) << bytes;
    EXPECT_EQ(read("\"\xff\""), noJson);
}

} // namespace tidlo
