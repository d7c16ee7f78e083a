#include "model/ModelJson.h"

#include "model/CandidateChanges.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <array>

namespace tidlo {

using Json = nlohmann::ordered_json;
using testing::HasSubstr;

namespace {

std::string errorOf(const Json &json)
{
    QString error;
    EXPECT_EQ(candidateFromJson(json, &error), std::nullopt);
    return error.toStdString();
}

Json fullJson()
{
    return toJson(fullCandidate());
}

} // namespace

TEST(ModelJson, WritesACandidateWithItsKeysInOrder)
{
    EXPECT_EQ(fullJson().dump(),
              R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","title":"Großes","detail":"Comes back \"by itself\".",)"
              R"("category":"Large & old files","risk":"Review first","bytes":9007199254740993,)"
              R"("paths":["/home/u/a","/home/u/b"],"selected":true,"aiExplanation":"Old."})");
}

TEST(ModelJson, LeavesAnAbsentExplanationOut)
{
    CleanupCandidate candidate = fullCandidate();
    candidate.aiExplanation.reset();
    EXPECT_FALSE(toJson(candidate).contains("aiExplanation"));
    candidate.aiExplanation = QString();
    EXPECT_EQ(toJson(candidate).at("aiExplanation"), "");
}

TEST(ModelJson, WritesNoPathsAsAnEmptyList)
{
    EXPECT_EQ(toJson(CleanupCandidate()).at("paths").dump(), "[]");
}

TEST(ModelJson, WritesBytesThatAreNotUtf8AsReplacementCharacters)
{
    CleanupCandidate candidate;
    candidate.paths = {"/home/u/caf\xe9\n"};
    EXPECT_EQ(toJson(candidate).at("paths").dump(), "[\"/home/u/caf\xef\xbf\xbd\\n\"]");
}

TEST(ModelJson, ReadsBackWhatItWrote)
{
    for (const CandidateChange &change : candidateChanges) {
        CleanupCandidate candidate = fullCandidate();
        change.apply(candidate);
        EXPECT_EQ(candidateFromJson(Json::parse(toJson(candidate).dump())), candidate) << change.field;
    }
}

TEST(ModelJson, ReadsAnEmptyListAsNoPaths)
{
    Json json = fullJson();
    json["paths"] = Json::array();
    const std::optional<CleanupCandidate> candidate = candidateFromJson(Json::parse(json.dump()));
    ASSERT_NE(candidate, std::nullopt);
    EXPECT_EQ(candidate->paths, QList<FilePath>());
}

TEST(ModelJson, TakesAMissingOrNullExplanationAsAbsent)
{
    Json json = fullJson();
    json["aiExplanation"] = nullptr;
    ASSERT_NE(candidateFromJson(json), std::nullopt);
    EXPECT_EQ(candidateFromJson(json)->aiExplanation, std::nullopt);
    json.erase("aiExplanation");
    ASSERT_NE(candidateFromJson(json), std::nullopt);
    EXPECT_EQ(candidateFromJson(json)->aiExplanation, std::nullopt);
}

TEST(ModelJson, ReadsLowerCaseIdentifiersAndIgnoresUnknownKeys)
{
    Json json = fullJson();
    json["id"] = "0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9";
    json["colour"] = "red";
    EXPECT_EQ(candidateFromJson(json), fullCandidate());
}

TEST(ModelJson, NamesAMissingKey)
{
    for (const char *key : {"id", "title", "detail", "category", "risk", "bytes", "paths", "selected"}) {
        Json json = fullJson();
        json.erase(key);
        EXPECT_EQ(errorOf(json), std::string("The key \"") + key + "\" is missing.");
    }
}

TEST(ModelJson, NamesAKeyWhoseValueIsNotWhatItMustBe)
{
    struct Row
    {
        const char *key;
        const char *value;
        const char *reason;
    };
    constexpr std::array rows{
        Row{"id", "1", "must be a text"},
        Row{"id", R"("")", "must be a UUID"},
        Row{"id", R"("0a1b2c3d")", "must be a UUID"},
        Row{"id", R"("{0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9}")", "must be a UUID"},
        Row{"title", "null", "must be a text"},
        Row{"detail", "[]", "must be a text"},
        Row{"category", R"("large & old files")", "is not one of the known titles"},
        Row{"category", R"("oldLargeFiles")", "is not one of the known titles"},
        Row{"risk", R"("safe to delete")", "is not one of the known titles"},
        Row{"risk", R"("safe")", "is not one of the known titles"},
        Row{"risk", "0", "must be a text"},
        Row{"bytes", "1.5", "must be a whole number of 64 bits"},
        Row{"bytes", R"("1")", "must be a whole number of 64 bits"},
        Row{"bytes", "9223372036854775808", "must be a whole number of 64 bits"},
        Row{"bytes", "-9223372036854775809", "must be a whole number of 64 bits"},
        Row{"paths", R"("/a")", "must be a list of texts"},
        Row{"paths", R"(["/a", 1])", "must be a list of texts"},
        Row{"paths", R"({"0": "/a"})", "must be a list of texts"},
        Row{"selected", "1", "must be true or false"},
        Row{"selected", "null", "must be true or false"},
        Row{"aiExplanation", "false", "must be a text"},
    };
    for (const Row &row : rows) {
        Json json = fullJson();
        json[row.key] = Json::parse(row.value);
        EXPECT_EQ(errorOf(json), std::string("The key \"") + row.key + "\" " + row.reason + ".") << row.value;
    }
}

TEST(ModelJson, NamesTheFirstOfSeveralFaults)
{
    EXPECT_THAT(errorOf(Json::object()), HasSubstr("\"id\""));
    Json json = fullJson();
    json["risk"] = "none";
    json["selected"] = "no";
    EXPECT_THAT(errorOf(json), HasSubstr("\"risk\""));
}

TEST(ModelJson, ReadsACandidateFromNothingButAnObject)
{
    for (const char *text : {"null", "[]", "\"id\"", "1"})
        EXPECT_THAT(errorOf(Json::parse(text)), HasSubstr("must be a JSON object")) << text;
}

TEST(ModelJson, ClearsTheErrorOfAnEarlierFailure)
{
    QString error = QStringLiteral("left over");
    EXPECT_NE(candidateFromJson(fullJson(), &error), std::nullopt);
    EXPECT_EQ(error, QString());
}

TEST(ModelJson, WritesTotalsWithTheirSixKeysInOrder)
{
    const ScanTotals totals{.diskUsedPercent = 0.5,
                            .recoverablePercent = 0.25,
                            .totalBytes = 3,
                            .recoverableBytes = 2,
                            .freeBytes = 4,
                            .volumeBytes = 8};
    EXPECT_EQ(toJson(totals).dump(), R"({"diskUsedPercent":0.5,"recoverablePercent":0.25,"totalBytes":3,)"
                                     R"("recoverableBytes":2,"freeBytes":4,"volumeBytes":8})");
}

TEST(ModelJson, WritesAReportWithItsKeysInOrderAndAnAbsentSummaryLeftOut)
{
    CleanupReport report{
        .recoveredBytes = 7, .removedItems = 2, .protectedItems = 1, .finalDiskUsedPercent = 0.5, .aiSummary = {}};
    EXPECT_EQ(toJson(report).dump(),
              R"({"recoveredBytes":7,"removedItems":2,"protectedItems":1,"finalDiskUsedPercent":0.5})");
    report.aiSummary = QStringLiteral("Done.");
    EXPECT_EQ(toJson(report).dump(),
              R"({"recoveredBytes":7,"removedItems":2,"protectedItems":1,"finalDiskUsedPercent":0.5,)"
              R"("aiSummary":"Done."})");
}

} // namespace tidlo
