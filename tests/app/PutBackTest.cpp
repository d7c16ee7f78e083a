#include "app/AppTest.h"

#include <semaphore>

namespace tidlo {

namespace {

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;

/// A cleanup of files in the home folder, to be undone.
class PutBack : public AppTest
{
protected:
    void cleanUp(const QList<FilePath> &names)
    {
        CleanupCandidate made = candidate("A", CleanupRisk::safe, 4'096);
        for (const FilePath &name : names)
            made.paths.append(home.file(name));
        show({made});
        model().moveSelectedToTrash();
        waitUntil([this] { return model().section() == AppSection::report; });
        for (const FilePath &name : names)
            EXPECT_FALSE(exists(name));
    }

    /// Puts everything back and waits until the scan that follows has shown its results.
    void putBack()
    {
        model().putEverythingBack();
        waitUntil([this] { return model().phase() == ScanPhase::results; });
    }

    bool exists(const FilePath &name) const { return files->attributesOfItem(home / name).has_value(); }
};

} // namespace

TEST_F(PutBack, IsOfferedOnceSomethingWasMoved)
{
    EXPECT_FALSE(model().canPutBack());
    model().putEverythingBack();
    EXPECT_EQ(model().phase(), ScanPhase::ready);
    cleanUp({"a", "b"});
    EXPECT_TRUE(model().canPutBack());
}

TEST_F(PutBack, PutsTheItemsOfTheCleanupBackAndScansAgain)
{
    cleanUp({"a", "b"});
    NotificationLog log(model());
    model().putEverythingBack();
    EXPECT_THAT(log.taken(),
                ElementsAre("phase: scanning", "section: scan", "scanProgress: 0.22", "scanLabel: Putting files back"));
    EXPECT_FALSE(model().canPutBack());
    waitUntil([this] { return model().phase() == ScanPhase::results; });
    EXPECT_TRUE(exists("a"));
    EXPECT_TRUE(exists("b"));
    EXPECT_FALSE(model().canPutBack());
    EXPECT_THAT(model().notPutBack(), IsEmpty());
    EXPECT_EQ(model().cleanupReport(), std::nullopt);
}

TEST_F(PutBack, IsStillOfferedWhateverIsScannedMeanwhile)
{
    cleanUp({"a"});
    scan();
    EXPECT_TRUE(model().canPutBack());
    putBack();
    EXPECT_TRUE(exists("a"));
}

TEST_F(PutBack, TakesBackTheLastCleanupAlone)
{
    cleanUp({"a"});
    cleanUp({"b"});
    putBack();
    EXPECT_FALSE(exists("a"));
    EXPECT_TRUE(exists("b"));
}

TEST_F(PutBack, TellsWhatStayedAndWhyAndOffersItAgain)
{
    cleanUp({"a", "b"});
    home.file("a");
    putBack();
    ASSERT_EQ(model().notPutBack().size(), 1);
    EXPECT_EQ(model().notPutBack().first().path, home / "a");
    EXPECT_EQ(model().notPutBack().first().reason, QStringLiteral("Something else is at its place by now."));
    EXPECT_TRUE(exists("b"));
    EXPECT_TRUE(model().canPutBack());

    model().acknowledgeNotPutBack();
    EXPECT_THAT(model().notPutBack(), IsEmpty());
    EXPECT_EQ(std::remove((home / "a").constData()), 0);
    model().putEverythingBack();
    waitUntil([this] { return exists("a") && !model().isMovingFiles(); });
    EXPECT_FALSE(model().canPutBack());
}

TEST_F(PutBack, NeitherItNorACleanupBeginsWhileOneIsUnderWay)
{
    cleanUp({"a"});
    std::binary_semaphore mayGoOn{0};
    EXPECT_CALL(*files, restoreItems(_, _)).WillOnce([&](const QList<TrashedItem> &items, const auto &) {
        mayGoOn.acquire();
        return QList<TrashOutcome>(items.size(), TrashOutcome{.kind = TrashOutcome::Kind::moved});
    });
    EXPECT_CALL(*files, trashItem).Times(0);
    model().putEverythingBack();
    show({candidate("B")});
    model().putEverythingBack();
    model().moveSelectedToTrash();
    mayGoOn.release();
    waitUntil([this] { return model().phase() == ScanPhase::results; });
}

TEST_F(PutBack, WritesNothingWhenTheWindowIsGone)
{
    cleanUp({"a"});
    model().putEverythingBack();
    letAllEnd(); // The address sanitizer finds uses of destroyed objects.
}

} // namespace tidlo
