#include "model/CandidateChanges.h"
#include "support/PrintQt.h"

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

TEST(CleanupCandidate, HashesAsItsCopy)
{
    EXPECT_EQ(qHash(fullCandidate()), qHash(fullCandidate()));
}

TEST(CleanupCandidate, HashesByEachOfItsNineFields)
{
    ASSERT_EQ(candidateChanges.size(), 9);
    for (const CandidateChange &change : candidateChanges) {
        CleanupCandidate changed = fullCandidate();
        change.apply(changed);
        EXPECT_NE(qHash(changed), qHash(fullCandidate())) << change.field;
    }
}

TEST(CleanupCandidate, HashesAnAbsentExplanationOtherwiseThanAnEmptyOne)
{
    CleanupCandidate absent = fullCandidate();
    CleanupCandidate empty = fullCandidate();
    absent.aiExplanation.reset();
    empty.aiExplanation = QString();
    EXPECT_NE(qHash(absent), qHash(empty));
}

} // namespace tidlo
