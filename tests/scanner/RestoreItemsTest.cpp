#include "scanner/RestoreItems.h"

#include "scanner/RuleTest.h"

namespace tidlo {

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;

namespace {

class RestoreItems : public RuleTest
{
protected:
    TrashedItem item(const char *origin) const
    {
        return {.trash = home / ".trash", .name = FilePath("1 ") + origin, .origin = home / origin};
    }

    Restoration restore(const QList<TrashedItem> &items)
    {
        return restoreItems(files, items, [] { return false; });
    }
};

} // namespace

TEST_F(RestoreItems, PutsBackWhatHoldsOthersFirst)
{
    const QList<TrashedItem> inOrder{item("a"), item("a/b"), item("a/b/c"), item("a0")};
    EXPECT_CALL(files, restoreItems(inOrder, _))
        .WillOnce(Return(QList<TrashOutcome>(4, TrashOutcome{.kind = TrashOutcome::Kind::moved})));
    EXPECT_EQ(restore({inOrder[3], inOrder[2], inOrder[0], inOrder[1]}).restored, inOrder);
}

TEST_F(RestoreItems, TellsWhatStayedAndWhyAndWhatIsLeft)
{
    EXPECT_CALL(files, restoreItems)
        .WillOnce(Return(QList{TrashOutcome::refused(QStringLiteral("It is taken.")), TrashOutcome::gone(),
                               TrashOutcome{.kind = TrashOutcome::Kind::moved}}));
    const Restoration restoration = restore({item("a"), item("b"), item("c"), item("d")});
    EXPECT_THAT(restoration.restored, ElementsAre(item("c")));
    EXPECT_THAT(restoration.left, ElementsAre(item("a"), item("b"), item("d")));
    EXPECT_THAT(restoration.stayed,
                ElementsAre(StayedItem{.path = home / "a", .reason = QStringLiteral("It is taken.")},
                            StayedItem{.path = home / "b", .reason = QStringLiteral("It is no longer in the Trash.")}));
}

TEST_F(RestoreItems, TakesBackWhatWasMoved)
{
    CleanupCandidate candidate;
    candidate.paths = {home.file("folder/inner"), home / "folder", home.file("file")};
    const auto never = [] { return false; };
    const QList<TrashedItem> moved = moveToTrash(files, {candidate}, {}, never).moved;
    EXPECT_EQ(moved.size(), 3);

    const Restoration restoration = restore(moved);

    EXPECT_THAT(restoration.left, IsEmpty());
    for (const FilePath &path : candidate.paths)
        EXPECT_TRUE(files.live().fileExists(path)) << path.constData();
}

} // namespace tidlo
