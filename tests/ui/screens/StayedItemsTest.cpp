#include "ui/screens/StayedItems.h"

#include "ui/UiTest.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tidlo {

using testing::Return;

namespace {

class StayedItemsTest : public UiTest
{
protected:
    /// Tries to move a finding with these paths, each of which is refused for \a reason.
    void cleanUp(const QList<FilePath> &paths, const QString &reason)
    {
        ON_CALL(*files, fileExists).WillByDefault(Return(true));
        ON_CALL(*files, attributesOfItem).WillByDefault(Return(FileAttributes()));
        ON_CALL(*files, trashItem)
            .WillByDefault(Return(TrashOutcome{.kind = TrashOutcome::Kind::refused, .reason = reason}));
        CleanupCandidate finding = candidate(CleanupRisk::safe);
        finding.paths = paths;
        app().setCandidates({finding});
        app().moveSelectedToTrash();
        waitUntil([this] { return !app().isMovingFiles(); });
        items.inspect();
    }

    QString shown(int row, int role) const { return items.data(items.index(row), role).toString(); }

    StayedItems items{app()};
};

} // namespace

TEST_F(StayedItemsTest, TellWhatStayedAndWhy)
{
    cleanUp({"/home/me/a", "/home/me/b\xff"}, QStringLiteral("It holds a Trash.\u202E"));
    EXPECT_EQ(items.title(), QStringLiteral("What stayed"));
    EXPECT_EQ(items.summary(), QStringLiteral("2 items could not be moved to the Trash"));
    EXPECT_EQ(shown(0, StayedItems::PathRole), QStringLiteral("/home/me/a"));
    EXPECT_EQ(shown(1, StayedItems::PathRole), QStringLiteral("/home/me/b\\xff"));
    EXPECT_EQ(shown(1, StayedItems::DetailRole), QStringLiteral("It holds a Trash.\\u202e"));
}

TEST_F(StayedItemsTest, CanBeSearchedCopiedAndShown)
{
    cleanUp({"/home/me/a", "/home/me/b"}, QStringLiteral("It holds a Trash."));
    items.setFilter(QStringLiteral("/B"));
    EXPECT_EQ(items.count(), 1);
    items.copyPath(0);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("/home/me/b"));
    EXPECT_CALL(*workspace, showInFiles(FilePath("/home/me/b")));
    items.showInFiles(0);
}

TEST_F(StayedItemsTest, ClearingShowsNothingAnyMore)
{
    cleanUp({"/home/me/a"}, QStringLiteral("It holds a Trash."));
    EXPECT_EQ(items.summary(), QStringLiteral("1 item could not be moved to the Trash"));
    items.clear();
    EXPECT_EQ(items.count(), 0);
}

} // namespace tidlo
