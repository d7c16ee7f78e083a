#include "cli/RestoreSelection.h"

#include "support/PrintQt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

ListedItem item(const FilePath &origin, const FilePath &name = "name", qint64 bytes = 1000)
{
    return {.item = {.trash = "/t", .name = name, .origin = origin}, .bytes = bytes};
}

std::optional<QDateTime> moment(const char *word)
{
    const QDateTime now(QDate(2026, 3, 10), QTime(12, 30, 15));
    const std::optional<FileTime> found = momentOf(QString::fromUtf8(word), now);
    if (!found)
        return std::nullopt;
    return QDateTime::fromSecsSinceEpoch(std::chrono::floor<std::chrono::seconds>(*found).time_since_epoch().count());
}

} // namespace

TEST(RestoreMoment, IsSoLongBeforeNowOrADate)
{
    EXPECT_EQ(moment("10min"), QDateTime(QDate(2026, 3, 10), QTime(12, 20, 15)));
    EXPECT_EQ(moment("2h"), QDateTime(QDate(2026, 3, 10), QTime(10, 30, 15)));
    EXPECT_EQ(moment("3d"), QDateTime(QDate(2026, 3, 10), QTime(12, 30, 15)).addSecs(-3 * 86'400));
    EXPECT_EQ(moment("today"), QDateTime(QDate(2026, 3, 10), QTime(0, 0)));
    EXPECT_EQ(moment("2026-03-09"), QDateTime(QDate(2026, 3, 9), QTime(0, 0)));
    EXPECT_EQ(moment("2026-03-09T08:07:06"), QDateTime(QDate(2026, 3, 9), QTime(8, 7, 6)));
    EXPECT_EQ(moment("2026-03-09T08:07:06Z"), QDateTime(QDate(2026, 3, 9), QTime(8, 7, 6), Qt::UTC).toLocalTime());
}

TEST(RestoreMoment, IsNothingElse)
{
    for (const char *word : {"", "10", "min", "10m", "-1h", "1.5h", "10 min", "yesterday", "2026", "2026-13-01",
                             "99999999999999999999d", "1000000min", "1d\n", "\xc2\xb2h"})
        EXPECT_FALSE(moment(word)) << word;
}

TEST(RestoreSelection, TakesWhatWasAtOrBeneathAPlaceTheOuterOnesFirst)
{
    const RestoreSelection selection =
        restoreSelection({item("/a/b/c"), item("/ab"), item("/a b"), item("/x/y"), item("/a/b")}, {"/a", "/x/y"});
    EXPECT_THAT(selection.items, ElementsAre(item("/a/b"), item("/a/b/c"), item("/x/y")));
    EXPECT_THAT(selection.missing, IsEmpty());
    EXPECT_EQ(selection.text(), QStringLiteral("3 items (3 KB)"));
}

TEST(RestoreSelection, OfSeveralItemsOfOnePlaceTakesTheLastMoved)
{
    const RestoreSelection selection =
        restoreSelection({item("/a", "new"), item("/b"), item("/a", "old"), item("/a", "oldest")}, {"/a"});
    EXPECT_THAT(selection.items, ElementsAre(item("/a", "new")));
    EXPECT_THAT(selection.others, ElementsAre(item("/a", "old"), item("/a", "oldest")));
}

TEST(RestoreSelection, NamesPlacesWhereNothingWas)
{
    EXPECT_THAT(restoreSelection({item("/a/b")}, {"/a/b/c", "/a", "/c"}).missing, ElementsAre("/a/b/c", "/c"));
}

TEST(RestoreSelection, TakesAllWithoutPlacesAndAllBeneathTheRoot)
{
    EXPECT_THAT(restoreSelection({item("/b"), item("/a")}, {}).items, ElementsAre(item("/a"), item("/b")));
    EXPECT_THAT(restoreSelection({item("/b"), item("/a")}, {"/"}).items, SizeIs(2));
}

} // namespace tidlo
