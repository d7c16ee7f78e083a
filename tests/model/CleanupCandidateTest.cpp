#include "model/CandidateChanges.h"
#include "support/PrintQt.h"

#include <QSet>

#include <gmock/gmock.h>

namespace tidlo {

using testing::IsEmpty;

TEST(CleanupCandidate, StartsSelectedWithoutExplanationPathsOrBytes)
{
    const CleanupCandidate candidate;
    EXPECT_TRUE(candidate.selected);
    EXPECT_EQ(candidate.aiExplanation, std::nullopt);
    EXPECT_THAT(candidate.paths, IsEmpty());
    EXPECT_EQ(candidate.bytes, 0);
}

TEST(CleanupCandidate, GetsAnIdentifierOfItsOwn)
{
    EXPECT_FALSE(CleanupCandidate().id.isNull());
    EXPECT_NE(CleanupCandidate().id, CleanupCandidate().id);
    EXPECT_NE(CleanupCandidate(), CleanupCandidate());
}

TEST(CleanupCandidate, IsEqualToItsCopy)
{
    const CleanupCandidate candidate = fullCandidate();
    EXPECT_EQ(candidate, fullCandidate());
    EXPECT_EQ(qHash(candidate), qHash(fullCandidate()));
}

TEST(CleanupCandidate, DiffersAndHashesByEachOfItsNineFields)
{
    ASSERT_EQ(candidateChanges.size(), 9);
    for (const CandidateChange &change : candidateChanges) {
        CleanupCandidate changed = fullCandidate();
        change.apply(changed);
        EXPECT_NE(changed, fullCandidate()) << change.field;
        EXPECT_NE(qHash(changed), qHash(fullCandidate())) << change.field;
    }
}

TEST(CleanupCandidate, TellsAnAbsentExplanationFromAnEmptyOne)
{
    CleanupCandidate absent = fullCandidate();
    CleanupCandidate empty = fullCandidate();
    absent.aiExplanation.reset();
    empty.aiExplanation = QString();
    EXPECT_NE(absent, empty);
    EXPECT_NE(qHash(absent), qHash(empty));
}

TEST(CleanupCandidate, CanBeKeptInASet)
{
    QSet<CleanupCandidate> set{fullCandidate(), fullCandidate(), CleanupCandidate()};
    EXPECT_EQ(set.size(), 2);
}

} // namespace tidlo
