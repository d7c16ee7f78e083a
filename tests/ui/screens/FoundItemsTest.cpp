#include "ui/screens/FoundItems.h"

#include "platform/ByteCountFormatter.h"
#include "ui/UiTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QThread>
#include <QTimer>

#include <latch>

namespace {

using testing::ElementsAre;

class FoundItemsTest : public UiTest
{
protected:
    FoundItemsTest() { items->setApp(&app()); }

    /// Shows a finding of these paths.
    void inspect(const QList<FilePath> &paths)
    {
        CleanupCandidate finding = candidate(CleanupRisk::safe);
        finding.paths = paths;
        app().setCandidates({candidate(CleanupRisk::review), finding});
        items->inspect(finding.id);
    }

    /// The same, and waits until all of them are measured.
    void inspectAndMeasure(const QList<FilePath> &paths)
    {
        inspect(paths);
        waitUntil([this] { return !items->summary().endsWith(QStringLiteral("measured")); });
    }

    QStringList column(int role) const
    {
        QStringList texts;
        for (int row = 0; row < items->rowCount(); ++row)
            texts.append(items->data(items->index(row), role).toString());
        return texts;
    }
    QStringList shownPaths() const { return column(FoundItems::PathRole); }
    QStringList shownSizes() const { return column(FoundItems::SizeRole); }

    /// Every path is said to be as large as the number it ends in.
    void measureByName()
    {
        ON_CALL(*files, allocatedSizes).WillByDefault([](const QList<FilePath> &paths, const std::stop_token &) {
            QList<qint64> sizes;
            for (const FilePath &path : paths)
                sizes.append(path.sliced(path.lastIndexOf('/') + 1).toLongLong());
            return sizes;
        });
    }

    std::unique_ptr<FoundItems> items = std::make_unique<FoundItems>();
};

} // namespace

TEST_F(FoundItemsTest, ShowTheSizesThatTheFoldersHave)
{
    home.file("one/a", 8192);
    home.file("one/deep/b", 4096);
    home.file("two", 100'000);
    const QList<FilePath> paths{home / "one", home / "two", home / "absent"};
    const QList<qint64> sizes = files->live().allocatedSizes(paths);
    ASSERT_GE(sizes.at(0), 12'288);

    inspectAndMeasure(paths);

    EXPECT_THAT(shownSizes(), ElementsAre(byteCountText(sizes.at(0)), byteCountText(sizes.at(1)), byteCountText(0)));
    EXPECT_EQ(items->summary(), QStringLiteral("3 items · ") + byteCountText(sizes.at(0) + sizes.at(1)));
}

TEST_F(FoundItemsTest, MeasuringChangesNothingOnTheDisk)
{
    home.file("one/a");
    const auto before = home.inventory();
    inspectAndMeasure({home / "one"});
    EXPECT_EQ(home.inventory(), before);
}

TEST_F(FoundItemsTest, AreMeasuredOffTheMainThreadAndShownBefore)
{
    // Given a disk that takes its time
    std::latch answered(1);
    QThread *measuredOn = nullptr;
    ON_CALL(*files, allocatedSizes).WillByDefault([&](const QList<FilePath> &, const std::stop_token &) {
        measuredOn = QThread::currentThread();
        answered.wait();
        return QList<qint64>{5, 6};
    });

    // When a finding is inspected
    inspect({"/home/me/a", "/home/me/b"});

    // Then its paths are there at once, without sizes,
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/home/me/a"), QStringLiteral("/home/me/b")));
    EXPECT_THAT(shownSizes(), ElementsAre(QStringLiteral(""), QStringLiteral("")));
    EXPECT_EQ(items->summary(), QStringLiteral("2 items · 0 measured"));

    // and the sizes come when the disk has told them.
    answered.count_down();
    waitUntil([this] { return !items->summary().endsWith(QStringLiteral("measured")); });
    EXPECT_THAT(shownSizes(), ElementsAre(QStringLiteral("5 bytes"), QStringLiteral("6 bytes")));
    EXPECT_NE(measuredOn, QThread::currentThread());
}

TEST_F(FoundItemsTest, AreInTheOrderTheyWereFound)
{
    measureByName();
    inspectAndMeasure({"/b/2", "/a/3", "/c/1"});
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/b/2"), QStringLiteral("/a/3"), QStringLiteral("/c/1")));
}

TEST_F(FoundItemsTest, TheLargestComeFirstWhereThatIsWanted)
{
    measureByName();
    inspectAndMeasure({"/b/2", "/a/3", "/c/1", "/d/3"});

    EXPECT_EQ(times(*items, &FoundItems::orderChanged, [this] { items->setLargestFirst(true); }), 1);
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/a/3"), QStringLiteral("/d/3"), QStringLiteral("/b/2"),
                                          QStringLiteral("/c/1"))); // Equal ones as they were found.
    EXPECT_THAT(shownSizes(), ElementsAre(QStringLiteral("3 bytes"), QStringLiteral("3 bytes"),
                                          QStringLiteral("2 bytes"), QStringLiteral("1 byte")));

    EXPECT_EQ(times(*items, &FoundItems::orderChanged, [this] { items->setLargestFirst(true); }), 0);
    items->setLargestFirst(false);
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/b/2"), QStringLiteral("/a/3"), QStringLiteral("/c/1"),
                                          QStringLiteral("/d/3")));
}

TEST_F(FoundItemsTest, SizesThatComeInLaterFindTheirPlace)
{
    measureByName();
    items->setLargestFirst(true);
    inspect({"/b/2", "/a/3", "/c/1"});
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/b/2"), QStringLiteral("/a/3"), QStringLiteral("/c/1")));

    // When they have been measured, then the rows show them in order; the view is not told to begin anew.
    int resets = 0;
    QObject::connect(items.get(), &QAbstractItemModel::modelReset, [&resets] { ++resets; });
    waitUntil([this] { return shownPaths().constFirst() == QStringLiteral("/a/3"); });
    EXPECT_EQ(resets, 0);
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/a/3"), QStringLiteral("/b/2"), QStringLiteral("/c/1")));
}

TEST_F(FoundItemsTest, AnOrderThatIsNoLongerWantedDoesNotComeBack)
{
    // Given sizes that have come in and are about to be sorted
    measureByName();
    items->setLargestFirst(true);
    inspectAndMeasure({"/b/2", "/a/3", "/c/1"});

    // When the order of finding is wanted again
    items->setLargestFirst(false);

    // Then no later sorting takes it away.
    EXPECT_FALSE(items->findChild<QTimer *>()->isActive());
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/b/2"), QStringLiteral("/a/3"), QStringLiteral("/c/1")));
}

TEST_F(FoundItemsTest, OnlyPathsThatContainTheTextAreShown)
{
    measureByName();
    inspectAndMeasure({"/home/Sites/1", "/home/other/2", "/home/sites/3"});

    EXPECT_EQ(times(*items, &FoundItems::filterChanged, [this] { items->setFilter(QStringLiteral("SITES")); }), 1);
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/home/Sites/1"), QStringLiteral("/home/sites/3")));
    EXPECT_THAT(shownSizes(), ElementsAre(QStringLiteral("1 byte"), QStringLiteral("3 bytes")));
    EXPECT_EQ(items->summary(), QStringLiteral("3 items · 6 bytes")); // Of the finding, not of what is shown.

    items->setFilter(QStringLiteral("nowhere"));
    EXPECT_EQ(items->count(), 0);
    EXPECT_EQ(times(*items, &QAbstractItemModel::modelReset, [this] { items->setFilter(QStringLiteral("nowhere")); }),
              0);
    items->setFilter(QString());
    EXPECT_EQ(items->count(), 3);
}

TEST_F(FoundItemsTest, ASearchAndAnOrderGoTogether)
{
    measureByName();
    inspectAndMeasure({"/a/1", "/b/9", "/a/2"});
    items->setLargestFirst(true);
    items->setFilter(QStringLiteral("/a/"));
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/a/2"), QStringLiteral("/a/1")));
}

TEST_F(FoundItemsTest, NamesThatCannotBeShownAreSpeltOut)
{
    inspect({"/home/a\nb", "/home/\xff", "/home/photo\u202Egpj.exe"});
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/home/a\\nb"), QStringLiteral("/home/\\xff"),
                                          QStringLiteral("/home/photo\\u202egpj.exe")));
}

TEST_F(FoundItemsTest, TheTitleIsThatOfTheFinding)
{
    CleanupCandidate finding = candidate(CleanupRisk::safe);
    finding.title = QStringLiteral("Caches\u202E");
    app().setCandidates({finding});
    items->inspect(finding.id);
    EXPECT_EQ(items->title(), QStringLiteral("Caches\\u202e"));
}

TEST_F(FoundItemsTest, OneItemIsSpokenOfAsOne)
{
    measureByName();
    inspectAndMeasure({"/a/1"});
    EXPECT_EQ(items->summary(), QStringLiteral("1 item · 1 byte"));
}

TEST_F(FoundItemsTest, AFindingThatIsNotThereHasNoItems)
{
    inspect({"/a/1"});
    items->inspect(QUuid::createUuid());
    EXPECT_EQ(items->count(), 0);
    EXPECT_EQ(items->title(), QStringLiteral(""));
    EXPECT_EQ(items->summary(), QStringLiteral("0 items · Zero KB"));
    items->inspect(QUuid());
    EXPECT_EQ(items->count(), 0);
}

TEST_F(FoundItemsTest, WithoutAStateOwnerThereAreNone)
{
    inspect({"/a/1"});
    const QUuid id = app().candidates().constLast().id;
    items->setApp(nullptr);
    items->inspect(id);
    EXPECT_EQ(items->count(), 0);
    items->showInFiles(0);
}

TEST_F(FoundItemsTest, AnotherFindingBeginsWithoutASearch)
{
    inspect({"/a/1", "/b/2"});
    items->setFilter(QStringLiteral("/a"));
    inspect({"/c/3"});
    EXPECT_EQ(items->filter(), QStringLiteral(""));
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/c/3")));
}

TEST_F(FoundItemsTest, ClearingStopsMeasuring)
{
    // Given a disk that answers only when it is told to stop
    std::latch begun(1);
    std::latch stopped(1);
    ON_CALL(*files, allocatedSizes).WillByDefault([&](const QList<FilePath> &paths, const std::stop_token &stop) {
        const std::stop_callback callback(stop, [&stopped] { stopped.count_down(); });
        begun.count_down();
        stopped.wait();
        return QList<qint64>(paths.size(), 7);
    });
    inspect({"/a/1", "/b/2"});
    begun.wait();

    // When what is shown is cleared
    items->clear();

    // Then it is told, and its late answer goes nowhere.
    stopped.wait();
    EXPECT_EQ(items->count(), 0);
    EXPECT_EQ(items->summary(), QStringLiteral("0 items · Zero KB"));
    items.reset(); // And with it the thread, which may not have seen yet that it need not wait.
}

TEST_F(FoundItemsTest, TheAnswerForAnEarlierFindingIsNotTakenForALaterOne)
{
    // Given a finding whose sizes are told only when nobody wants them any more
    std::latch begun(1);
    ON_CALL(*files, allocatedSizes).WillByDefault([&](const QList<FilePath> &paths, const std::stop_token &stop) {
        if (paths.size() == 1)
            return QList<qint64>{8};
        std::latch stopped(1);
        const std::stop_callback callback(stop, [&stopped] { stopped.count_down(); });
        begun.count_down();
        stopped.wait();
        return QList<qint64>{7, 7};
    });
    inspect({"/a/1", "/b/2"});
    begun.wait();

    // When another is shown
    inspectAndMeasure({"/c/3"});

    // Then it has its own.
    EXPECT_THAT(shownSizes(), ElementsAre(QStringLiteral("8 bytes")));
    EXPECT_EQ(items->summary(), QStringLiteral("1 item · 8 bytes"));
    items.reset();
}

TEST_F(FoundItemsTest, GoingAwayStopsMeasuring)
{
    std::latch begun(1);
    std::latch stopped(1);
    ON_CALL(*files, allocatedSizes).WillByDefault([&](const QList<FilePath> &paths, const std::stop_token &stop) {
        const std::stop_callback callback(stop, [&stopped] { stopped.count_down(); });
        begun.count_down();
        stopped.wait();
        return QList<qint64>(paths.size(), 7);
    });
    inspect({"/a/1", "/b/2"});
    begun.wait();

    items.reset(); // Returns only once the thread has.

    EXPECT_TRUE(stopped.try_wait());
}

TEST_F(FoundItemsTest, OutliveTheStateOwner)
{
    measureByName();
    inspect({"/a/1", "/b/2"});
    closeApp();
    waitUntil([this] { return !items->summary().endsWith(QStringLiteral("measured")); });
    EXPECT_THAT(shownSizes(), ElementsAre(QStringLiteral("1 byte"), QStringLiteral("2 bytes")));
    items->showInFiles(0);
    items->inspect(QUuid());
    EXPECT_EQ(items->count(), 0);
}

TEST_F(FoundItemsTest, AHundredThousandAreMeasuredInTheirOrder)
{
    constexpr int count = 100'000;
    QList<FilePath> paths;
    for (int i = 0; i < count; ++i)
        paths.append("/home/me/" + FilePath::number(i));
    measureByName();

    inspectAndMeasure(paths);

    EXPECT_EQ(items->count(), count);
    EXPECT_EQ(items->data(items->index(0), FoundItems::SizeRole), QStringLiteral("Zero KB"));
    EXPECT_EQ(items->data(items->index(count - 1), FoundItems::SizeRole), byteCountText(count - 1));
    constexpr qint64 sum = qint64(count) * (count - 1) / 2;
    EXPECT_EQ(items->summary(), QStringLiteral("100,000 items · ") + byteCountText(sum));

    items->setLargestFirst(true);
    EXPECT_EQ(items->data(items->index(0), FoundItems::PathRole), QStringLiteral("/home/me/99999"));
    items->setFilter(QStringLiteral("/777"));
    EXPECT_EQ(items->count(), 1 + 10 + 100);
    EXPECT_EQ(items->data(items->index(0), FoundItems::PathRole), QStringLiteral("/home/me/77799"));
}

TEST_F(FoundItemsTest, APathIsCopiedAsItIs)
{
    inspect({"/home/a\\b", "/home/größer"});
    items->copyPath(0);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("/home/a\\b"));
    items->copyPath(1);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("/home/größer"));
}

TEST_F(FoundItemsTest, AnItemIsShownInTheFileBrowser)
{
    inspect({"/home/\xff", "/home/b"});
    EXPECT_CALL(*workspace, showInFiles(FilePath("/home/\xff")));
    items->showInFiles(0);
}

TEST_F(FoundItemsTest, AShownRowIsWhatIsActedUponWhateverTheOrder)
{
    measureByName();
    inspectAndMeasure({"/a/1", "/b/2", "/c/3"});
    items->setLargestFirst(true);
    EXPECT_CALL(*workspace, showInFiles(FilePath("/c/3")));
    items->showInFiles(0);
    items->copyPath(2);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("/a/1"));
}

TEST_F(FoundItemsTest, RowsThatAreNotThereDoNothing)
{
    inspect({"/a/1"});
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
    EXPECT_CALL(*workspace, showInFiles).Times(0);
    for (const int row : {-1, 1, 1000}) {
        items->showInFiles(row);
        items->copyPath(row);
        EXPECT_FALSE(items->data(items->index(row), FoundItems::PathRole).isValid());
    }
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("kept"));
    EXPECT_FALSE(items->data(items->index(0), Qt::DisplayRole).isValid());
    EXPECT_EQ(items->rowCount(items->index(0)), 0); // A row holds no rows.
}

TEST_F(FoundItemsTest, ViewsReadTheRolesByTheseNames)
{
    EXPECT_THAT(items->roleNames().values(), testing::UnorderedElementsAre("pathText", "sizeText"));
}
