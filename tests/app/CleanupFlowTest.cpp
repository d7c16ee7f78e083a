#include "app/AppTest.h"

#include <QCoreApplication>

#include <semaphore>

#include <sys/stat.h>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

namespace {

class CleanupFlow : public AppTest
{
protected:
    /// A candidate with files of one block each.
    CleanupCandidate withFiles(const char *title, const QList<FilePath> &names, CleanupRisk risk = CleanupRisk::safe)
    {
        CleanupCandidate made = candidate(title, risk, 4'096 * names.size());
        for (const FilePath &name : names)
            made.paths.append(home.file(name, 4'096));
        return made;
    }

    static bool exists(const FilePath &path)
    {
        struct stat status;
        return lstat(path.constData(), &status) == 0;
    }

    void waitForReport()
    {
        waitUntil([&] { return model().section() == AppSection::report; });
    }

    void cleanUp()
    {
        model().moveSelectedToTrash();
        waitForReport();
    }
};

CleanupCandidate unselected(CleanupCandidate candidate)
{
    candidate.selected = false;
    return candidate;
}

} // namespace

TEST_F(CleanupFlow, DoesNothingAtAllWhenNothingIsSelected)
{
    show({unselected(withFiles("A", {"a"})), candidate("B", CleanupRisk::never)});
    NotificationLog log(model());
    EXPECT_CALL(*files, trashItem).Times(0);

    model().moveSelectedToTrash();
    QCoreApplication::processEvents();

    EXPECT_THAT(log.taken(), IsEmpty());
}

TEST_F(CleanupFlow, MovesWhatIsSelectedAndReports)
{
    show({withFiles("A", {"a", "b"}), unselected(withFiles("B", {"c"})), withFiles("C", {"d"}, CleanupRisk::review)});
    model().setAiSummary(QStringLiteral("Explanation"));
    NotificationLog log(model());

    model().moveSelectedToTrash();
    EXPECT_THAT(log.taken(), ElementsAre("phase: scanning", "section: scan", "scanProgress: 0.22",
                                         "scanLabel: Moving selected files to Trash"));

    waitForReport();
    EXPECT_THAT(log.taken(), ElementsAre("totals: 0 bytes", "candidates: [-B]", "cleanupReport: 3 removed, 0 protected",
                                         "phase: report", "section: report"));
    EXPECT_FALSE(exists(home / "a"));
    EXPECT_FALSE(exists(home / "b"));
    EXPECT_TRUE(exists(home / "c"));
    EXPECT_FALSE(exists(home / "d"));
    EXPECT_EQ(model().cleanupReport()->recoveredBytes, 3 * 4'096);
    EXPECT_EQ(model().cleanupReport()->aiSummary, std::nullopt);
    EXPECT_EQ(model().aiSummary(), QStringLiteral("Explanation"));
    EXPECT_EQ(explainer.asked(), 0);
}

TEST_F(CleanupFlow, IsNotBegunAgainWhileItIsUnderWay)
{
    show({withFiles("A", {"a"}), withFiles("B", {"b"})});
    NotificationLog log(model());
    int changes = 0;
    QObject::connect(&model(), &AppViewModel::isMovingFilesChanged, [&changes] { ++changes; });
    EXPECT_FALSE(model().isMovingFiles());

    model().moveSelectedToTrash();
    EXPECT_TRUE(model().isMovingFiles());
    log.taken();
    model().moveSelectedToTrash();
    EXPECT_THAT(log.taken(), IsEmpty());
    waitForReport();

    EXPECT_FALSE(model().isMovingFiles());
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(model().cleanupReport()->removedItems, 2);
    // And another cleanup can begin.
    show({withFiles("C", {"c"})});
    model().moveSelectedToTrash();
    waitUntil([&] { return !model().isMovingFiles(); });
    EXPECT_EQ(model().cleanupReport()->removedItems, 1);
}

TEST_F(CleanupFlow, KeepsWhatStayedUntilAnotherScanBegins)
{
    show({withFiles("A", {"a", "b"})});
    ON_CALL(*files, trashItem).WillByDefault([this](const FilePath &path) {
        using Kind = TrashOutcome::Kind;
        return TrashOutcome{.kind = path == home / "a" ? Kind::refused : Kind::moved,
                            .reason = QStringLiteral("It holds a Trash.")};
    });
    QObject::connect(&model(), &AppViewModel::cleanupReportChanged, [this] {
        EXPECT_EQ(model().stayed().isEmpty(), !model().cleanupReport()) << "Both change together.";
    });

    cleanUp();
    EXPECT_EQ(model().stayed(),
              (QList<StayedItem>{{.path = home / "a", .reason = QStringLiteral("It holds a Trash.")}}));

    model().startScan();
    EXPECT_TRUE(model().stayed().isEmpty());
}

TEST_F(CleanupFlow, MovesWhatTheFilterHidesAsWell)
{
    show({withFiles("A", {"a"}), withFiles("B", {"b"}, CleanupRisk::review)});
    model().setSelectedFilter(CleanupRisk::safe);
    EXPECT_EQ(model().selectedBytes(), 2 * 4'096);

    cleanUp();

    EXPECT_FALSE(exists(home / "a"));
    EXPECT_FALSE(exists(home / "b"));
    EXPECT_TRUE(model().candidates().isEmpty());
    EXPECT_EQ(model().cleanupReport()->removedItems, 2);
}

TEST_F(CleanupFlow, LeavesTheFiguresOfTheDiskAlone)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    scan();
    ASSERT_EQ(model().totals().totalBytes, 8'192);
    ASSERT_GT(model().totals().recoverablePercent, 0);

    cleanUp();

    EXPECT_EQ(model().totals().totalBytes, 0);
    EXPECT_EQ(model().totals().recoverableBytes, 0);
    EXPECT_EQ(model().totals().recoverablePercent, 0);
    EXPECT_GT(model().totals().diskUsedPercent, 0);
    EXPECT_GT(model().totals().freeBytes, 0);
    EXPECT_GT(model().totals().volumeBytes, 0);
    EXPECT_GT(model().cleanupReport()->finalDiskUsedPercent, 0);
}

TEST_F(CleanupFlow, ReportsOnAnUnreadableVolumeToo)
{
    show({withFiles("A", {"a"})});
    ON_CALL(*files, volumeCapacity).WillByDefault(testing::Return(std::nullopt));
    ON_CALL(*files, fileSystemAttributes).WillByDefault(testing::Return(std::nullopt));

    cleanUp();

    EXPECT_EQ(model().totals(), ScanTotals());
    EXPECT_EQ(model().cleanupReport()->removedItems, 1);
    EXPECT_EQ(model().cleanupReport()->finalDiskUsedPercent, 0);
}

TEST_F(CleanupFlow, LeavesAloneWhatIsNeverToBeTouched)
{
    CleanupCandidate first = withFiles("A", {"a"}, CleanupRisk::never);
    CleanupCandidate second = withFiles("B", {"b"}, CleanupRisk::never);
    first.selected = second.selected = true;
    show({first, second});

    cleanUp();

    EXPECT_EQ(model().cleanupReport()->removedItems, 0);
    EXPECT_EQ(model().cleanupReport()->recoveredBytes, 0);
    EXPECT_EQ(model().cleanupReport()->protectedItems, 2);
    EXPECT_EQ(model().candidates(), (QList<CleanupCandidate>{first, second}));
    EXPECT_EQ(model().phase(), ScanPhase::report);
    EXPECT_TRUE(exists(home / "a"));
}

TEST_F(CleanupFlow, RemovesVanishedAndRefusedFindingsFromTheList)
{
    CleanupCandidate vanished = candidate("A", CleanupRisk::safe, 4'096);
    vanished.paths = {home / "missing"};
    const CleanupCandidate refused = withFiles("B", {"b"});
    show({vanished, refused, unselected(candidate("C"))});
    ON_CALL(*files, trashItem).WillByDefault([](const FilePath &) {
        return TrashOutcome{.kind = TrashOutcome::Kind::refused, .reason = QStringLiteral("No.")};
    });

    cleanUp();

    EXPECT_EQ(inWords(QVariant::fromValue(model().candidates())), "[-C]");
    EXPECT_EQ(model().cleanupReport()->removedItems, 0);
    EXPECT_EQ(model().cleanupReport()->recoveredBytes, 0);
}

TEST_F(CleanupFlow, KeepsTheOrderOfWhatRemains)
{
    show({unselected(candidate("A")), candidate("B"), unselected(candidate("C")), candidate("D"),
          candidate("E", CleanupRisk::never), unselected(candidate("F"))});

    cleanUp();

    EXPECT_EQ(inWords(QVariant::fromValue(model().candidates())), "[-A, -C, -E, -F]");
}

TEST_F(CleanupFlow, MovesWhatWasSelectedAndRemovesFromTheListWhatIsSelectedAtTheEnd)
{
    const CleanupCandidate first = withFiles("A", {"a"});
    const CleanupCandidate second = unselected(withFiles("B", {"b"}));
    show({first, second});

    model().moveSelectedToTrash();
    model().toggleCandidate(first);
    model().toggleCandidate(second);
    waitForReport();

    EXPECT_FALSE(exists(home / "a"));
    EXPECT_TRUE(exists(home / "b"));
    EXPECT_EQ(inWords(QVariant::fromValue(model().candidates())), "[-A]");
    EXPECT_EQ(model().cleanupReport()->removedItems, 1);
}

TEST_F(CleanupFlow, IsNotCancelledByAScanThatShowsItsResultsAfterwards)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    show({withFiles("A", {"a"})});
    NotificationLog log(model());

    model().moveSelectedToTrash();
    scan();

    EXPECT_FALSE(exists(home / "a"));
    EXPECT_EQ(model().phase(), ScanPhase::results);
    EXPECT_EQ(model().section(), AppSection::results);
    EXPECT_EQ(model().cleanupReport()->removedItems, 1);
    EXPECT_EQ(inWords(QVariant::fromValue(model().candidates())), "[+User and developer caches]");
    EXPECT_THAT(log.taken(), IsSupersetOf({"phase: report", "section: report"}));
}

TEST_F(CleanupFlow, DoesNotCancelAScanAndMayFinishAfterIt)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    show({withFiles("A", {"a"})});
    model().startScan();
    waitUntil([&] { return model().scanLabel() == QStringLiteral("Ready"); });

    model().moveSelectedToTrash();
    waitForReport();

    EXPECT_FALSE(exists(home / "a"));
    EXPECT_EQ(explainer.asked(), 1);
    EXPECT_EQ(model().phase(), ScanPhase::report);
    // The scan's findings are selected and were therefore removed from the list, though nothing was moved.
    EXPECT_TRUE(model().candidates().isEmpty());
    EXPECT_TRUE(exists(home / "Library/Caches/pip/wheel"));
    EXPECT_EQ(model().cleanupReport()->removedItems, 1);
}

TEST_F(CleanupFlow, IsFollowedByAScanThatClearsTheReportAtOnce)
{
    show({withFiles("A", {"a"})});
    cleanUp();
    ASSERT_TRUE(model().cleanupReport());

    model().startScan();

    EXPECT_EQ(model().cleanupReport(), std::nullopt);
}

// This test and the one about the disk rely on the sanitizers to find uses of destroyed objects.
TEST_F(CleanupFlow, MayEndWithTheWindowBeforeItBegins)
{
    show({withFiles("A", {"a"})});
    model().moveSelectedToTrash();

    closeWindow();
    letAllEnd();
}

TEST_F(CleanupFlow, IsStoppedBetweenTwoItemsWhenTheWindowCloses)
{
    constexpr int asked = 100'000;
    CleanupCandidate many = candidate("A");
    many.paths = QList<FilePath>(asked, home.path());
    show({many});
    std::atomic<int> moved = 0;
    std::atomic<bool> isClosing = false;
    ON_CALL(*files, trashItem).WillByDefault([&](const FilePath &) {
        if (++moved == 1) {
            QMetaObject::invokeMethod(qApp, [&] {
                isClosing = true;
                isClosing.notify_one();
                closeWindow();
            });
            isClosing.wait(false);
        }
        return TrashOutcome{.kind = TrashOutcome::Kind::moved, .reason = {}};
    });

    model().moveSelectedToTrash();
    waitUntil([&] { return isClosing.load(); });
    letAllEnd();

    EXPECT_LT(moved, asked);
}

TEST_F(CleanupFlow, MayEndWithTheWindowWhileTheDiskIsRead)
{
    show({withFiles("A", {"a"})});
    int reads = 0;
    bool isClosed = false;
    // The report's own figures are read first, then those for the sidebar.
    ON_CALL(*files, volumeCapacity).WillByDefault([&](const FilePath &) {
        if (++reads == 2) {
            QMetaObject::invokeMethod(qApp, [&] {
                closeWindow();
                isClosed = true;
            });
        }
        return VolumeCapacity{.total = 2, .available = 1};
    });

    model().moveSelectedToTrash();
    waitUntil([&] { return isClosed; });
    letAllEnd();
}

} // namespace tidlo
