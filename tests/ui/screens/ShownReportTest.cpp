#include "ui/screens/ShownReport.h"

#include "ui/UiTest.h"

namespace tidlo {

namespace {

CleanupCandidate withPaths(CleanupCandidate candidate, int count)
{
    for (int i = 0; i < count; ++i)
        candidate.paths.append("/home/me/" + FilePath::number(i));
    return candidate;
}

class ShownReportTest : public UiTest
{
protected:
    void setUsed(double share)
    {
        ScanTotals totals;
        totals.diskUsedPercent = share;
        app().setTotals(totals);
    }

    void showTwoFindings()
    {
        app().setCandidates({withPaths(candidate(CleanupRisk::safe, 1'000'000'000, CleanupCategory::whatsApp), 3),
                             withPaths(candidate(CleanupRisk::review, 300'000'000, CleanupCategory::devProjects), 4)});
    }

    QString valueOf(int figure) const { return report.figures().at(figure).value; }

    ShownReport report{app()};
};

} // namespace

TEST_F(ShownReportTest, FiguresHaveTheirTextsAndColors)
{
    const QList<ReportFigure> expected{
        {.title = QStringLiteral("PROJECT FILES"),
         .value = QStringLiteral("Zero KB"),
         .detail = QStringLiteral("Source code kept intact"),
         .hue = TidloTheme::Hue::AccentBlue},
        {.title = QStringLiteral("WHATSAPP"),
         .value = QStringLiteral("Zero KB"),
         .detail = QStringLiteral("Chat database protected"),
         .hue = TidloTheme::Hue::AccentGreen},
        {.title = QStringLiteral("FILES REMOVED"),
         .value = QStringLiteral("0"),
         .detail = QStringLiteral("Moved to Trash"),
         .hue = TidloTheme::Hue::PrimaryText},
        {.title = QStringLiteral("PROTECTED ITEMS"),
         .value = QStringLiteral("0"),
         .detail = QStringLiteral("Flagged never-touch"),
         .hue = TidloTheme::Hue::AccentRed},
    };
    EXPECT_EQ(report.figures(), expected);
}

TEST_F(ShownReportTest, APreviewCountsThePathsOfTheSelectionAndNotItsFindings)
{
    showTwoFindings();
    EXPECT_EQ(valueOf(2), QStringLiteral("7"));

    app().toggleCandidate(app().candidates().constLast());
    EXPECT_EQ(valueOf(2), QStringLiteral("3"));
}

TEST_F(ShownReportTest, APreviewTellsWhatTheSelectionWouldRecover)
{
    showTwoFindings();
    EXPECT_EQ(report.recoveredText(), QStringLiteral("1.3 GB"));

    app().toggleCandidate(app().candidates().constFirst());
    EXPECT_EQ(report.recoveredText(), QStringLiteral("300 MB"));
}

TEST_F(ShownReportTest, APreviewOfNothingIsZeroBytesAndTheDiskAsItIs)
{
    setUsed(0.63);
    EXPECT_EQ(report.recoveredText(), QStringLiteral("Zero KB"));
    EXPECT_EQ(valueOf(2), QStringLiteral("0"));
    EXPECT_EQ(report.diskText(), QStringLiteral("Disk now 63% full"));
}

TEST_F(ShownReportTest, APreviewCountsProtectedFindingsWhateverIsShown)
{
    app().setCandidates({candidate(CleanupRisk::never), candidate(CleanupRisk::never), candidate(CleanupRisk::safe)});
    app().setSelectedFilter(CleanupRisk::safe);
    EXPECT_EQ(valueOf(3), QStringLiteral("2"));
}

TEST_F(ShownReportTest, APreviewTakesOnTheExplanation)
{
    app().setAiSummary(QStringLiteral("Clean."));
    EXPECT_EQ(ShownReport::reportOf(app()).aiSummary, QStringLiteral("Clean."));
}

TEST_F(ShownReportTest, AfterACleanupItIsTheReportAsItStands)
{
    // Given a selection
    showTwoFindings();
    setUsed(0.63);

    // When there is a report with other figures
    const CleanupReport done{.recoveredBytes = 5'000'000,
                             .removedItems = 1234,
                             .protectedItems = 9,
                             .finalDiskUsedPercent = 0.25,
                             .aiSummary = std::nullopt};
    app().setCleanupReport(done);

    // Then it is shown, and not the selection.
    EXPECT_EQ(ShownReport::reportOf(app()), done);
    EXPECT_EQ(report.recoveredText(), QStringLiteral("5 MB"));
    EXPECT_EQ(report.diskText(), QStringLiteral("Disk now 25% full"));
    EXPECT_EQ(valueOf(2), QStringLiteral("1234"));
    EXPECT_EQ(valueOf(3), QStringLiteral("9"));
}

TEST_F(ShownReportTest, CategoryFiguresAreThoseOfTheFindingsBeforeAndAfter)
{
    showTwoFindings();
    EXPECT_EQ(valueOf(0), QStringLiteral("300 MB"));
    EXPECT_EQ(valueOf(1), QStringLiteral("1 GB"));

    app().setCleanupReport(CleanupReport());
    EXPECT_EQ(valueOf(0), QStringLiteral("300 MB"));
    EXPECT_EQ(valueOf(1), QStringLiteral("1 GB"));
}

TEST_F(ShownReportTest, TheRingShowsWhatIsFree)
{
    setUsed(0.61);
    EXPECT_DOUBLE_EQ(report.freeShare(), 1 - 0.61);
    EXPECT_EQ(report.freeText(), QStringLiteral("39%"));
}

TEST_F(ShownReportTest, TheRingNeverShowsLessThanAHundredth)
{
    for (const double used : {0.99, 0.995, 1.0, 1.5}) {
        setUsed(used);
        EXPECT_NEAR(report.freeShare(), 0.01, 1e-12) << used;
        EXPECT_EQ(report.freeText(), QStringLiteral("1%")) << used;
    }
    setUsed(0.98);
    EXPECT_NEAR(report.freeShare(), 0.02, 1e-12);
}

TEST_F(ShownReportTest, TellsWhateverChangesIt)
{
    EXPECT_EQ(times(report, &ShownReport::changed, [this] { showTwoFindings(); }), 1);
    EXPECT_EQ(times(report, &ShownReport::changed, [this] { setUsed(0.5); }), 1);
    EXPECT_EQ(times(report, &ShownReport::changed, [this] { app().setCleanupReport(CleanupReport{}); }), 1);
}

} // namespace tidlo
