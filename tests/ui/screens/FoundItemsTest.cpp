#include "ui/screens/FoundItems.h"

#include "platform/ByteCountFormatter.h"
#include "ui/UiTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QThreadPool>

namespace tidlo {

namespace {

using testing::ElementsAre;

class FoundItemsTest : public UiTest
{
protected:
    /// Shows a finding with these paths. The size of each is the number at its end, if there is one.
    void inspect(const QList<FilePath> &paths)
    {
        CleanupCandidate finding = candidate(CleanupRisk::safe);
        finding.paths = paths;
        QList<qint64> sizes;
        for (const FilePath &path : paths)
            sizes.append(path.sliced(path.lastIndexOf('/') + 1).toLongLong());
        app().showResults({.snapshot = {.totals = {}, .candidates = {candidate(CleanupRisk::review), finding}},
                           .sizes = {{finding.id, sizes}}});
        items->inspect(finding.id);
    }

    QStringList column(int role) const
    {
        QStringList texts;
        for (int row = 0; row < items->rowCount(); ++row)
            texts.append(items->data(items->index(row), role).toString());
        return texts;
    }
    QList<bool> ticks() const
    {
        QList<bool> ticks;
        for (int row = 0; row < items->rowCount(); ++row)
            ticks.append(items->data(items->index(row), FoundItems::TickedRole).toBool());
        return ticks;
    }
    QStringList shownPaths() const { return column(FoundItems::PathRole); }
    QStringList shownSizes() const { return column(FoundItems::DetailRole); }

    std::unique_ptr<FoundItems> items = std::make_unique<FoundItems>(app());
};

} // namespace

TEST_F(FoundItemsTest, ShowTheSizesThatTheScanFoundAndMeasureNothing)
{
    EXPECT_CALL(*files, allocatedSizes).Times(0);
    EXPECT_CALL(*files, attributesOfItem).Times(0);
    inspect({"/a/8192", "/b/100000", "/c/0"});
    EXPECT_THAT(shownSizes(), ElementsAre(byteCountText(8192), byteCountText(100'000), byteCountText(0)));
    EXPECT_EQ(items->summary(), QStringLiteral("3 items · ") + byteCountText(108'192));
}

TEST_F(FoundItemsTest, AreTickedAndUntickedOneByOne)
{
    inspect({"/a/1", "/b/2", "/c/4"});
    EXPECT_TRUE(items->isTickable());
    EXPECT_THAT(ticks(), ElementsAre(true, true, true));
    items->toggle(1);
    EXPECT_THAT(ticks(), ElementsAre(true, false, true));
    EXPECT_EQ(items->summary(), QStringLiteral("2 of 3 items ticked · 5 bytes of 7 bytes"));
    EXPECT_THAT(app().candidates().at(1).paths, ElementsAre("/a/1", "/c/4"));
    items->toggle(1);
    EXPECT_THAT(ticks(), ElementsAre(true, true, true));
    EXPECT_EQ(items->summary(), QStringLiteral("3 items · 7 bytes"));
    items->toggle(-1);
    items->toggle(3);
    EXPECT_THAT(ticks(), ElementsAre(true, true, true));
}

TEST_F(FoundItemsTest, WhatIsShownIsTickedAndUntickedAtOnce)
{
    inspect({"/a/1", "/b/2", "/a/4"});
    items->setFilter(QStringLiteral("/a/"));
    items->tickShown(false);
    items->setFilter({});
    EXPECT_THAT(ticks(), ElementsAre(false, true, false));
    items->tickShown(true);
    EXPECT_THAT(ticks(), ElementsAre(true, true, true));
}

TEST_F(FoundItemsTest, AreTickedAsTheirFindingIsSelected)
{
    inspect({"/a/1", "/b/2"});
    app().toggleCandidate(app().candidates().at(1));
    EXPECT_THAT(ticks(), ElementsAre(false, false));
    items->toggle(0);
    EXPECT_THAT(ticks(), ElementsAre(true, false));
    EXPECT_TRUE(app().candidates().at(1).selected);
}

TEST_F(FoundItemsTest, SayWhatWentWithThemInAnotherFinding)
{
    CleanupCandidate one = candidate(CleanupRisk::review);
    one.title = QStringLiteral("One");
    one.paths = {"/a/1", "/a/2", "/b/1"};
    CleanupCandidate other = one;
    other.id = QUuid::createUuid();
    other.title = QStringLiteral("Other");
    app().showResults({.snapshot = {.totals = {}, .candidates = {one, other}}, .sizes = {}});
    items->inspect(one.id);
    items->toggle(2);
    EXPECT_EQ(items->note(), QStringLiteral("Unticked in “Other” as well: /b/1"));
    items->tickShown(false);
    EXPECT_EQ(items->note(), QStringLiteral("Unticked in “Other” as well: /a/1, and 1 more"));
    items->tickShown(true);
    EXPECT_EQ(items->note(), QStringLiteral(""));
}

TEST_F(FoundItemsTest, OfWhatIsNeverToBeTouchedHaveNoTicks)
{
    CleanupCandidate one = candidate(CleanupRisk::never);
    one.paths = {"/a/1"};
    app().showResults({.snapshot = {.totals = {}, .candidates = {one}}, .sizes = {}});
    items->inspect(one.id);
    EXPECT_FALSE(items->isTickable());
}

TEST_F(FoundItemsTest, ClearingShowsNothingAnyMore)
{
    inspect({"/a/1", "/b/2"});
    items->clear();
    EXPECT_EQ(items->count(), 0);
    EXPECT_EQ(items->title(), QStringLiteral(""));
    EXPECT_EQ(items->summary(), QStringLiteral("0 items · Zero KB"));
}

TEST_F(FoundItemsTest, GoingAwayEndsThePreparationOfASearch)
{
    inspect(QList<FilePath>(10'000, "/größer"));
    items.reset();
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents(); // The preparation finds no object to report to; the address sanitizer would
                                       // notice a use of it.
}

TEST_F(FoundItemsTest, WhatIsPreparedForAnEarlierFindingIsNotTakenForALaterOne)
{
    inspect({"/größer/1"});
    inspect({"/äpfel/1"});
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    items->setFilter(QStringLiteral("größer"));
    EXPECT_EQ(items->count(), 0);
    items->setFilter(QStringLiteral("ÄPFEL"));
    EXPECT_EQ(items->count(), 1);
}

TEST_F(FoundItemsTest, AreInTheOrderTheyWereFound)
{
    inspect({"/b/2", "/a/3", "/c/1"});
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/b/2"), QStringLiteral("/a/3"), QStringLiteral("/c/1")));
}

TEST_F(FoundItemsTest, TheLargestComeFirstWhereThatIsWanted)
{
    inspect({"/b/2", "/a/3", "/c/1", "/d/3"});

    EXPECT_EQ(times(*items, &FoundItems::orderChanged, [this] { items->setLargestFirst(true); }), 1);
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/a/3"), QStringLiteral("/d/3"), QStringLiteral("/b/2"),
                                          QStringLiteral("/c/1"))); // Items of the same size stay in the order in which
                                                                    // they were found.
    EXPECT_THAT(shownSizes(), ElementsAre(QStringLiteral("3 bytes"), QStringLiteral("3 bytes"),
                                          QStringLiteral("2 bytes"), QStringLiteral("1 byte")));

    EXPECT_EQ(times(*items, &FoundItems::orderChanged, [this] { items->setLargestFirst(true); }), 0);
    items->setLargestFirst(false);
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/b/2"), QStringLiteral("/a/3"), QStringLiteral("/c/1"),
                                          QStringLiteral("/d/3")));
}

TEST_F(FoundItemsTest, OnlyPathsThatContainTheTextAreShown)
{
    inspect({"/home/Sites/1", "/home/other/2", "/home/sites/3"});

    EXPECT_EQ(times(*items, &FoundItems::filterChanged, [this] { items->setFilter(QStringLiteral("SITES")); }), 1);
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/home/Sites/1"), QStringLiteral("/home/sites/3")));
    EXPECT_THAT(shownSizes(), ElementsAre(QStringLiteral("1 byte"), QStringLiteral("3 bytes")));
    EXPECT_EQ(items->summary(), QStringLiteral("3 items · 6 bytes")); // Of the whole finding, whatever the search
                                                                      // shows.

    items->setFilter(QStringLiteral("nowhere"));
    EXPECT_EQ(items->count(), 0);
    EXPECT_EQ(times(*items, &QAbstractItemModel::modelReset, [this] { items->setFilter(QStringLiteral("nowhere")); }),
              0);
    items->setFilter(QString());
    EXPECT_EQ(items->count(), 3);
}

TEST_F(FoundItemsTest, ASearchAndAnOrderGoTogether)
{
    inspect({"/a/1", "/b/9", "/a/2"});
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
    app().showResults({.snapshot = {.totals = {}, .candidates = {finding}}, .sizes = {}});
    items->inspect(finding.id);
    EXPECT_EQ(items->title(), QStringLiteral("Caches\\u202e"));
}

TEST_F(FoundItemsTest, OneItemIsSpokenOfAsOne)
{
    inspect({"/a/1"});
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

TEST_F(FoundItemsTest, AnotherFindingBeginsWithoutASearch)
{
    inspect({"/a/1", "/b/2"});
    items->setFilter(QStringLiteral("/a"));
    inspect({"/c/3"});
    EXPECT_EQ(items->filter(), QStringLiteral(""));
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/c/3")));
}

TEST_F(FoundItemsTest, AHundredThousandAreShownInTheirOrder)
{
    constexpr int count = 100'000;
    QList<FilePath> paths;
    for (int i = 0; i < count; ++i)
        paths.append("/home/me/" + FilePath::number(i));

    inspect(paths);

    EXPECT_EQ(items->count(), count);
    EXPECT_EQ(items->data(items->index(0), FoundItems::DetailRole), QStringLiteral("Zero KB"));
    EXPECT_EQ(items->data(items->index(count - 1), FoundItems::DetailRole), byteCountText(count - 1));
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
    inspect({"/a/1", "/b/2", "/c/3"});
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
    EXPECT_THAT(items->roleNames().values(), testing::UnorderedElementsAre("pathText", "detailText", "ticked"));
}

TEST_F(FoundItemsTest, NeverToBeSuggestedGoAtOnceAndTheSearchStays)
{
    inspect({"/a/1", "/b/2", "/a/4"});
    items->setFilter(QStringLiteral("a"));
    EXPECT_EQ(items->spareText(1), QStringLiteral("Never suggest this"));
    items->spare(1);
    EXPECT_THAT(shownPaths(), ElementsAre(QStringLiteral("/a/1")));
    EXPECT_THAT(shownSizes(), ElementsAre(byteCountText(1)));
    EXPECT_THAT(ticks(), ElementsAre(true));
    EXPECT_EQ(items->summary(), QStringLiteral("2 items · 3 bytes"));
    EXPECT_EQ(items->note(), QStringLiteral("Never suggested again: /a/4. The menu of the settings shows the list."));
    EXPECT_THAT(app().defaults().paths(UserDefaults::spared).value(), ElementsAre("/a/4"));
    items->spare(1);
    EXPECT_EQ(items->count(), 1);
}

TEST_F(FoundItemsTest, WhatHoldsTheItemIsNamedWithItsSizeBeforeItGoesToo)
{
    CleanupCandidate inner = candidate(CleanupRisk::safe);
    inner.paths = {"/a/b/c"};
    CleanupCandidate outer = candidate(CleanupRisk::safe);
    outer.paths = {"/a/b", "/" + QByteArray(90, 'x')};
    CleanupCandidate outermost = candidate(CleanupRisk::review);
    outermost.paths = {"/a"};
    app().showResults({.snapshot = {.totals = {}, .candidates = {inner, outer, outermost}},
                       .sizes = {{inner.id, {10}}, {outer.id, {20, 1}}, {outermost.id, {30}}}});
    items->inspect(inner.id);
    EXPECT_EQ(items->spareText(0),
              QStringLiteral("Never suggest this, nor “/a”, which holds it (%1), and 1 more").arg(byteCountText(30)));
    items->spare(0);
    EXPECT_EQ(items->title(), QString());
    EXPECT_EQ(items->count(), 0);
    ASSERT_EQ(app().candidates().size(), 1);
    EXPECT_EQ(app().candidates().first().paths.size(), 1);
}

TEST_F(FoundItemsTest, WhatCannotBeKeptStaysAndIsTold)
{
    inspect({"/a/1"});
    app().defaults().set(UserDefaults::spared, QStringLiteral("relative"));
    items->spare(0);
    EXPECT_EQ(items->count(), 1);
    EXPECT_EQ(items->note(), QStringLiteral("The preferences cannot be read or written, so this cannot be kept."));
}

TEST_F(FoundItemsTest, TheSummarySaysWhatIsFreedWhereThatIsLess)
{
    CleanupCandidate finding = candidate(CleanupRisk::safe);
    finding.paths = {"/a", "/b"};
    app().showResults({.snapshot = {.totals = {}, .candidates = {finding}},
                       .sizes = {{finding.id, {100'000, 50'000}}},
                       .linked = {{"/a", {{.device = 1, .inode = 2, .bytes = 60'000, .links = 2}}}}});
    items->inspect(finding.id);
    EXPECT_EQ(items->summary(), QStringLiteral("2 items · 150 KB · frees about 90 KB: 60 KB is linked from elsewhere"));
    items->toggle(0);
    EXPECT_EQ(items->summary(), QStringLiteral("1 of 2 items ticked · 50 KB of 150 KB"));
}

} // namespace tidlo
