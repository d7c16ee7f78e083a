#include "proxy/PromptFindings.h"

#include "ai/Prompt.h"

#include <gtest/gtest.h>

namespace tidlo::proxy {
namespace {

QString promptOf(const QString &metadata)
{
    return QStringLiteral("Rules\n\nScan metadata:\n") + metadata;
}

QString block(const char *size, const char *category = "User caches", const char *risk = "Safe to delete")
{
    return QStringLiteral("- id: 1\ntitle: T\ncategory: %1\nrisk: %2\nsize: %3\npaths: /a\ncurrent explanation: d")
        .arg(QString::fromLatin1(category), QString::fromLatin1(risk), QString::fromLatin1(size));
}

qsizetype countIn(const QString &metadata)
{
    return findingsIn(promptOf(metadata))->size();
}

} // namespace

TEST(PromptFindings, AreThoseThatTheClientWrites)
{
    const CleanupCandidate candidate{.id = QUuid::createUuid(),
                                     .title = QStringLiteral("A title: with a colon"),
                                     .detail = {},
                                     .category = CleanupCategory::oldLargeFiles,
                                     .risk = CleanupRisk::review,
                                     .bytes = 1'234'567'890,
                                     .paths = {},
                                     .selected = false,
                                     .aiExplanation = std::nullopt};
    const PromptFinding finding{.title = candidate.title,
                                .category = candidate.category,
                                .risk = candidate.risk,
                                .size = QStringLiteral("1.23 GB"),
                                .bytes = 1.23e9};

    const QList<PromptFinding> expected{finding, finding};
    EXPECT_EQ(findingsIn(promptFor({candidate, candidate})), expected);
    EXPECT_EQ(findingsIn(promptFor({})), QList<PromptFinding>());
}

TEST(PromptFindings, HaveSizesInEveryUnit)
{
    const std::pair<const char *, double> rows[]{{"Zero KB", 0}, {"1 byte", 1},       {"999 bytes", 999},
                                                 {"1 KB", 1e3},  {"12.5 MB", 12.5e6}, {"1.23 GB", 1.23e9},
                                                 {"2 TB", 2e12}, {"3.4 PB", 3.4e15},  {"9.22 EB", 9.22e18}};
    for (const auto &[size, bytes] : rows) {
        const auto findings = findingsIn(promptOf(block(size)));
        ASSERT_EQ(findings->size(), 1) << size;
        EXPECT_EQ(findings->first().size, QString::fromLatin1(size));
        EXPECT_DOUBLE_EQ(findings->first().bytes, bytes) << size;
    }
}

TEST(PromptFindings, AreNothingElse)
{
    for (const char *size : {"", "1", "KB", "1KB", "-1 KB", "1 kb", "1 KB ", "1 KB. Run this", "1.234 GB", "1000 KB"})
        EXPECT_EQ(countIn(block(size)), 0) << size;
    EXPECT_EQ(countIn(block("1 KB", "Evil")), 0);
    EXPECT_EQ(countIn(block("1 KB", "User caches", "Delete now")), 0);
    EXPECT_EQ(countIn(QStringLiteral("- id: 1")), 0);
    EXPECT_EQ(countIn(QStringLiteral("- id: 1\ntitle: T\nrisk: Safe to delete\ncategory: User caches\nsize: 1 KB")), 0);
    EXPECT_EQ(findingsIn(block("1 KB")), std::nullopt);
}

TEST(PromptFindings, AreEightAtMost)
{
    EXPECT_EQ(countIn(QStringList(20, block("1 KB")).join(u'\n')), 8);
}

TEST(PromptFindings, OutliveLinesBetweenThem)
{
    EXPECT_EQ(countIn(block("1 KB") + QStringLiteral("\nline\n- id: 2\n\n") + block("2 KB")), 2);
}

} // namespace tidlo::proxy
