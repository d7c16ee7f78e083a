#include "ui/shell/StorageFigures.h"

#include "ui/UiTest.h"

namespace tidlo {

namespace {

using testing::Each;
using testing::ElementsAre;

class StorageFiguresTest : public UiTest
{
protected:
    void setShares(double used, double recoverable = 0)
    {
        ScanTotals totals;
        totals.diskUsedPercent = used;
        totals.recoverablePercent = recoverable;
        app().setTotals(totals);
    }

    QStringList texts(QString CategoryFigure::*member) const
    {
        QStringList texts;
        for (const CategoryFigure &figure : figures.categories())
            texts.append(figure.*member);
        return texts;
    }

    StorageFigures figures{app()};
};

} // namespace

TEST_F(StorageFiguresTest, TheDiskIsReadyWhileNothingIsKnownOfIt)
{
    EXPECT_EQ(figures.diskStatus(), QStringLiteral("Ready"));
    EXPECT_EQ(figures.usedText(), QStringLiteral("0%"));
    EXPECT_EQ(figures.recoverableText(), QStringLiteral("0%"));

    setShares(-0.2);
    EXPECT_EQ(figures.diskStatus(), QStringLiteral("Ready"));
}

TEST_F(StorageFiguresTest, ADiskIsAsFullAsItsPercentageSays)
{
    setShares(0.63, 0.125);
    EXPECT_EQ(figures.diskStatus(), QStringLiteral("63% full"));
    EXPECT_EQ(figures.usedShare(), 0.63);
    EXPECT_EQ(figures.usedText(), QStringLiteral("63%"));
    EXPECT_EQ(figures.recoverableShare(), 0.125);
    EXPECT_EQ(figures.recoverableText(), QStringLiteral("13%"));
}

TEST_F(StorageFiguresTest, ALittleUsedDiskIsNotReadyAnyMore)
{
    setShares(0.001);
    EXPECT_EQ(figures.diskStatus(), QStringLiteral("0% full"));
}

TEST_F(StorageFiguresTest, AShareAboveOneIsWrittenAsItIs)
{
    setShares(1.07);
    EXPECT_EQ(figures.diskStatus(), QStringLiteral("107% full"));
    EXPECT_EQ(figures.usedShare(), 1.07);
}

TEST_F(StorageFiguresTest, FiveCategoriesStandInThisOrder)
{
    EXPECT_THAT(texts(&CategoryFigure::title),
                ElementsAre(QStringLiteral("Project files"), QStringLiteral("WhatsApp"), QStringLiteral("User caches"),
                            QStringLiteral("Downloads"), QStringLiteral("Large & old files")));
    EXPECT_THAT(texts(&CategoryFigure::symbol),
                ElementsAre(QStringLiteral("folder.badge.gearshape"), QStringLiteral("message.circle"),
                            QStringLiteral("externaldrive"), QStringLiteral("arrow.down.to.line"),
                            QStringLiteral("clock.arrow.circlepath")));
    QList<TidloTheme::Hue> hues;
    for (const CategoryFigure &figure : figures.categories())
        hues.append(figure.hue);
    using enum TidloTheme::Hue;
    EXPECT_THAT(hues, ElementsAre(Blue, Mint, Purple, Yellow, Orange));
    EXPECT_THAT(texts(&CategoryFigure::subtitle),
                ElementsAre(QStringLiteral("Temporary project data · Build caches"), QStringLiteral("Media cache only"),
                            QStringLiteral("Browser cache · App temp files"),
                            QStringLiteral("Installers · Archives · Large media"),
                            QStringLiteral(">100 MB · Unused for 60+ days")));
}

TEST_F(StorageFiguresTest, OnlyProjectFilesAreHighlighted)
{
    QList<bool> selected;
    for (const CategoryFigure &figure : figures.categories())
        selected.append(figure.selected);
    EXPECT_THAT(selected, ElementsAre(true, false, false, false, false));
}

TEST_F(StorageFiguresTest, EveryCategoryIsADashBeforeAnythingIsFound)
{
    EXPECT_THAT(texts(&CategoryFigure::bytesText), Each(QStringLiteral("—")));
}

TEST_F(StorageFiguresTest, ACategoryHasTheBytesOfItsFindingsWhateverTheirSelection)
{
    CleanupCandidate unticked = candidate(CleanupRisk::safe, 1'000'000'000, CleanupCategory::downloads);
    unticked.selected = false;
    app().setCandidates({candidate(CleanupRisk::safe, 1, CleanupCategory::devProjects),
                         candidate(CleanupRisk::review, 0, CleanupCategory::whatsApp), unticked,
                         candidate(CleanupRisk::review, 300'000'000, CleanupCategory::downloads)});
    EXPECT_THAT(texts(&CategoryFigure::bytesText),
                ElementsAre(QStringLiteral("1 byte"), QStringLiteral("—"), QStringLiteral("—"),
                            QStringLiteral("1.3 GB"), QStringLiteral("—")));
}

TEST_F(StorageFiguresTest, ANegativeCountIsADash)
{
    app().setCandidates({candidate(CleanupRisk::safe, -5, CleanupCategory::devProjects)});
    EXPECT_EQ(figures.categories().constFirst().bytesText, QStringLiteral("—"));
}

TEST_F(StorageFiguresTest, ATogglePassesWithoutNewCards)
{
    app().setCandidates(demoFindings());
    const auto toggle = [this] { app().toggleCandidate(app().candidates().constFirst()); };
    EXPECT_EQ(times(figures, &StorageFigures::categoriesChanged, toggle), 0);
    EXPECT_EQ(times(figures, &StorageFigures::categoriesChanged, [this] { app().setCandidates({}); }), 1);
}

TEST_F(StorageFiguresTest, TellsOfNewTotals)
{
    EXPECT_EQ(times(figures, &StorageFigures::totalsChanged, [this] { setShares(0.5); }), 1);
}

} // namespace tidlo
