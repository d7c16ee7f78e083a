#pragma once

#include "fakes/FakeFileManager.h"
#include "scanner/Finding.h"
#include "support/InChild.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace tidlo {

/// The fixed fields of a candidate, to be compared together.
struct FixedFields
{
    const char *title;
    const char *detail;
    CleanupCategory category;
    CleanupRisk risk;
    bool selected;
};

inline void expectFixedFields(const CleanupCandidate &candidate, const FixedFields &expected)
{
    EXPECT_EQ(candidate.title.toStdString(), expected.title);
    EXPECT_EQ(candidate.detail.toStdString(), expected.detail);
    EXPECT_EQ(candidate.category, expected.category);
    EXPECT_EQ(candidate.risk, expected.risk);
    EXPECT_EQ(candidate.selected, expected.selected);
    EXPECT_EQ(candidate.aiExplanation, std::nullopt);
    EXPECT_FALSE(candidate.id.isNull());
}

inline QList<CleanupCandidate> candidatesOf(const QList<Finding> &findings)
{
    QList<CleanupCandidate> candidates;
    for (const Finding &finding : findings)
        candidates.append(finding.candidate);
    return candidates;
}

/// Valid file names that are easily handled wrongly. Each leaves room for four more bytes.
inline QList<FilePath> awkwardNames()
{
    return {"new\nline", "%2F%n%s%1", "caf\xe9\xff", "-rf", " two  spaces ", "\xe2\x80\xaegnp", FilePath(251, 'x')};
}

/// A rule on real folders: a private home folder, and a file manager whose calls can be made to fail.
class RuleTest : public testing::Test
{
protected:
    RuleTest();
    ~RuleTest() override;

    /// The bytes that deleting a file frees.
    static qint64 onDisk(const FilePath &path)
    {
        struct stat status;
        EXPECT_EQ(lstat(path.constData(), &status), 0) << path.constData();
        return status.st_blocks * 512;
    }

    /// Runs \a check in a process without rights, which cannot access \a closed, and reports its failed expectations.
    static void withoutAccessTo(const FilePath &closed, const std::function<void()> &check)
    {
        EXPECT_EQ(chmod(closed.constData(), 0), 0);
        const ChildResult result = inChild([&check] {
            const bool isOrdinaryUser = geteuid() != 0 || becomeNobody();
            check();
            return isOrdinaryUser && !HasFailure();
        });
        EXPECT_TRUE(result.succeeded) << result.output;
        EXPECT_EQ(chmod(closed.constData(), 0755), 0);
    }

    static FileTime daysAgo(int days) { return now - std::chrono::days(days); }

    static constexpr FileTime now = std::chrono::sys_days(std::chrono::year(2024) / 6 / 15) + std::chrono::hours(12);

    TemporaryHome home;
    testing::NiceMock<FakeFileManager> files{home.path()};
};

} // namespace tidlo
