#include "ui/screens/Findings.h"

#include "ui/UiTest.h"
#include "ui/design/TidloTheme.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tidlo {

namespace {

using testing::ElementsAre;
using testing::StartsWith;

class FindingsTest : public UiTest
{
protected:
    QVariant value(int row, int role) const { return findings.data(findings.index(row), role); }
    QString text(int row, int role) const { return value(row, role).toString(); }

    void show(const QList<CleanupCandidate> &candidates) { app().setCandidates(candidates); }

    /// How often the model is reset while \a act runs.
    template <typename Act>
    int resetsWhile(Act act)
    {
        return times(findings, &QAbstractItemModel::modelReset, act);
    }

    Findings findings{app()};
};

} // namespace

TEST_F(FindingsTest, AreInTheOrderOfTheScan)
{
    show(demoFindings());
    ASSERT_EQ(findings.rowCount(), 9);
    for (int row = 0; row < 9; ++row) {
        EXPECT_EQ(text(row, Findings::TitleRole), demoFindings().at(row).title);
        EXPECT_EQ(findings.candidateAt(row), demoFindings().at(row).id);
    }
}

TEST_F(FindingsTest, AreReplacedByThoseOfAnotherScanOnly)
{
    const QList<CleanupCandidate> some{candidate(CleanupRisk::safe), candidate(CleanupRisk::review)};
    const auto replacedBy = [this](const QList<CleanupCandidate> &others) {
        return times(findings, &Findings::replaced, [&] { show(others); });
    };

    EXPECT_EQ(replacedBy(some), 1);
    EXPECT_EQ(replacedBy({some.last()}), 0); // As after a cleanup.
    EXPECT_EQ(times(findings, &Findings::replaced, [this] { findings.setFilter(Findings::Filter::Safe); }), 0);
    EXPECT_EQ(replacedBy({candidate(CleanupRisk::safe)}), 1);
    EXPECT_EQ(replacedBy({}), 1);
}

TEST_F(FindingsTest, ARowHasAllItsView)
{
    CleanupCandidate shown = candidate(CleanupRisk::review, 6'180'000'000, CleanupCategory::whatsApp);
    shown.title = QStringLiteral("Chat media");
    shown.detail = QStringLiteral("Photos and videos.");
    show({shown});

    EXPECT_EQ(text(0, Findings::TitleRole), QStringLiteral("Chat media"));
    EXPECT_EQ(text(0, Findings::DetailRole), QStringLiteral("Photos and videos."));
    EXPECT_EQ(text(0, Findings::SymbolRole), QStringLiteral("message.circle"));
    EXPECT_EQ(value(0, Findings::SymbolHueRole).toInt(), static_cast<int>(TidloTheme::Hue::Mint));
    EXPECT_EQ(text(0, Findings::RiskRole), QStringLiteral("Review first"));
    EXPECT_EQ(value(0, Findings::RiskHueRole).toInt(), static_cast<int>(TidloTheme::Hue::Yellow));
    EXPECT_EQ(value(0, Findings::BadgeHueRole).toInt(), static_cast<int>(TidloTheme::Hue::Yellow));
    EXPECT_EQ(text(0, Findings::SizeRole), QStringLiteral("6.18 GB"));
    EXPECT_EQ(value(0, Findings::ShareRole).toDouble(), 1);
    EXPECT_TRUE(value(0, Findings::SelectedRole).toBool());
    EXPECT_TRUE(value(0, Findings::ToggleableRole).toBool());
}

TEST_F(FindingsTest, ViewsReadTheRolesByTheseNames)
{
    const QList<QByteArray> names = findings.roleNames().values();
    EXPECT_THAT(names, testing::UnorderedElementsAre("title", "detail", "symbol", "symbolHue", "risk", "riskHue",
                                                     "badgeHue", "sizeText", "share", "ticked", "toggleable"));
}

TEST_F(FindingsTest, TheBadgeOfWhatIsNeverToBeTouchedHasARedOfItsOwn)
{
    show({candidate(CleanupRisk::never)});
    EXPECT_EQ(text(0, Findings::RiskRole), QStringLiteral("Never touch"));
    EXPECT_EQ(value(0, Findings::RiskHueRole).toInt(), static_cast<int>(TidloTheme::Hue::Red));
    EXPECT_EQ(value(0, Findings::BadgeHueRole).toInt(), static_cast<int>(TidloTheme::Hue::AccentRed));
    EXPECT_FALSE(value(0, Findings::ToggleableRole).toBool());
}

TEST_F(FindingsTest, AnExplanationTakesThePlaceOfTheDetail)
{
    CleanupCandidate explained = candidate(CleanupRisk::safe);
    explained.detail = QStringLiteral("The rule's own words.");
    explained.aiExplanation = QStringLiteral("The explanation.");
    CleanupCandidate plain = candidate(CleanupRisk::safe);
    plain.detail = QStringLiteral("The rule's own words.");
    show({explained, plain});

    EXPECT_EQ(text(0, Findings::DetailRole), QStringLiteral("The explanation."));
    EXPECT_EQ(text(1, Findings::DetailRole), QStringLiteral("The rule's own words."));
}

TEST_F(FindingsTest, NothingInATextCanChangeHowItIsDrawn)
{
    CleanupCandidate hostile = candidate(CleanupRisk::safe);
    hostile.title = QStringLiteral("photo\u202Egpj.exe");
    hostile.aiExplanation = QStringLiteral("safe\u200B\x1b[31m");
    show({hostile});
    app().setAiSummary(QStringLiteral("line\nline\u202E"));

    EXPECT_EQ(text(0, Findings::TitleRole), QStringLiteral("photo\\u202egpj.exe"));
    EXPECT_EQ(text(0, Findings::DetailRole), QStringLiteral("safe\\u200b\\x1b[31m"));
    EXPECT_EQ(findings.summary(), QStringLiteral("line\nline\\u202e"));
}

TEST_F(FindingsTest, OfALongExplanationTheBeginningIsShownAndHowMuchMoreThereIs)
{
    app().setAiSummary(QString(4'000, u'\u202E'));
    EXPECT_EQ(findings.summary(), QStringLiteral("\\u202e").repeated(4'000));
    EXPECT_EQ(findings.summaryRest(), QString());

    app().setAiSummary(QString(4'001, u'x'));
    EXPECT_EQ(findings.summary(), QString(4'000, u'x'));
    EXPECT_THAT(findings.summaryRest().toStdString(), StartsWith("1 more character is not shown. "));

    EXPECT_EQ(times(findings, &Findings::summaryChanged, [&] { app().setAiSummary(QString(1'048'576, u'x')); }), 1);
    EXPECT_THAT(findings.summaryRest().toStdString(), StartsWith("1,044,576 more characters are not shown. "));
    EXPECT_EQ(app().aiSummary(), QString(1'048'576, u'x'));
}

TEST_F(FindingsTest, TheWholeExplanationIsCopiedAsItWouldBeShown)
{
    app().setAiSummary(QString(5'000, u'x') + QChar(0x202e));

    findings.copySummary();

    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString(5'000, u'x') + QStringLiteral("\\u202e"));
}

TEST_F(FindingsTest, TheHeadlineTellsHowMuchWasFound)
{
    EXPECT_EQ(findings.headline(), QStringLiteral("AI-assisted results — Zero KB found"));

    ScanTotals totals;
    totals.totalBytes = 4'200'000'000;
    EXPECT_EQ(times(findings, &Findings::headlineChanged, [&] { app().setTotals(totals); }), 1);
    EXPECT_EQ(findings.headline(), QStringLiteral("AI-assisted results — 4.2 GB found"));
}

TEST_F(FindingsTest, TheBarCountsTheSelectionAlsoWhereItIsHidden)
{
    // Given a selected finding of each risk
    show({candidate(CleanupRisk::safe, 1'000'000'000), candidate(CleanupRisk::review, 300'000'000)});
    EXPECT_EQ(findings.selectionText(), QStringLiteral("1.3 GB selected"));

    // When only one of them is shown
    findings.setFilter(Findings::Filter::Review);

    // Then both still count.
    EXPECT_EQ(findings.count(), 1);
    EXPECT_EQ(findings.selectionText(), QStringLiteral("1.3 GB selected"));
    EXPECT_TRUE(findings.canMove());
}

TEST_F(FindingsTest, NothingIsSelectedWhereNothingIsTicked)
{
    EXPECT_EQ(findings.selectionText(), QStringLiteral("Zero KB selected"));
    EXPECT_FALSE(findings.canMove());

    show({candidate(CleanupRisk::safe)});
    EXPECT_TRUE(findings.canMove());
    EXPECT_EQ(times(findings, &Findings::selectionChanged, [this] { findings.toggle(0); }), 1);
    EXPECT_FALSE(findings.canMove());
}

TEST_F(FindingsTest, NothingCanBeMovedWhileSomethingIs)
{
    show({candidate(CleanupRisk::safe), candidate(CleanupRisk::review)});
    app().moveSelectedToTrash();
    EXPECT_FALSE(findings.canMove());
    waitUntil([this] { return !app().isMovingFiles(); });
    show({candidate(CleanupRisk::safe)});
    EXPECT_TRUE(findings.canMove());
}

TEST_F(FindingsTest, AFilterShowsOneRiskAndAllShowsEveryOne)
{
    show({candidate(CleanupRisk::safe), candidate(CleanupRisk::rebuildable), candidate(CleanupRisk::review),
          candidate(CleanupRisk::never)});
    EXPECT_EQ(findings.filter(), Findings::Filter::All);
    EXPECT_EQ(findings.count(), 4);

    findings.setFilter(Findings::Filter::Safe);
    EXPECT_EQ(app().selectedFilter(), CleanupRisk::safe);
    ASSERT_EQ(findings.count(), 1);
    EXPECT_EQ(text(0, Findings::RiskRole), QStringLiteral("Safe to delete"));

    findings.setFilter(Findings::Filter::Review);
    EXPECT_EQ(app().selectedFilter(), CleanupRisk::review);
    ASSERT_EQ(findings.count(), 1);
    EXPECT_EQ(text(0, Findings::RiskRole), QStringLiteral("Review first"));

    findings.setFilter(Findings::Filter::All);
    EXPECT_EQ(app().selectedFilter(), std::nullopt);
    EXPECT_EQ(findings.count(), 4);
}

TEST_F(FindingsTest, AFilterWithoutAChipIsNoneOfTheThree)
{
    show({candidate(CleanupRisk::safe), candidate(CleanupRisk::rebuildable)});
    EXPECT_EQ(times(findings, &Findings::filterChanged, [this] { app().setSelectedFilter(CleanupRisk::rebuildable); }),
              1);
    EXPECT_EQ(findings.filter(), Findings::Filter::Other);
    EXPECT_EQ(findings.count(), 1);

    findings.setFilter(Findings::Filter::Other); // No chip leads to it.
    EXPECT_EQ(app().selectedFilter(), CleanupRisk::rebuildable);
}

TEST_F(FindingsTest, SharesAreOfTheLargestFindingEvenIfItIsHidden)
{
    show({candidate(CleanupRisk::safe, 1000), candidate(CleanupRisk::review, 250), candidate(CleanupRisk::review, 0)});
    findings.setFilter(Findings::Filter::Review);
    EXPECT_EQ(value(0, Findings::ShareRole).toDouble(), 0.25);
    EXPECT_EQ(value(1, Findings::ShareRole).toDouble(), 0);
}

TEST_F(FindingsTest, FindingsOfNoBytesHaveNoShare)
{
    show({candidate(CleanupRisk::safe, 0)});
    EXPECT_EQ(value(0, Findings::ShareRole).toDouble(), 0);
    EXPECT_EQ(text(0, Findings::SizeRole), QStringLiteral("Zero KB"));
}

TEST_F(FindingsTest, AToggleKeepsTheRowsAndTellsThatTheirValuesChanged)
{
    show(demoFindings());
    int resets = 0;
    const int changes = times(findings, &QAbstractItemModel::dataChanged,
                              [&] { resets = resetsWhile([this] { findings.toggle(0); }); });

    EXPECT_EQ(resets, 0);
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(value(0, Findings::SelectedRole).toBool());
    EXPECT_TRUE(value(1, Findings::SelectedRole).toBool());
}

TEST_F(FindingsTest, OtherFindingsMakeTheRowsAnew)
{
    show(demoFindings());
    const auto one = [this] { show({candidate(CleanupRisk::safe)}); };
    EXPECT_EQ(resetsWhile(one), 1);
    EXPECT_EQ(times(findings, &Findings::countChanged, [this] { show({}); }), 1);
    EXPECT_EQ(findings.rowCount(), 0);
}

TEST_F(FindingsTest, ARowOfAFilteredListTogglesItsOwnFinding)
{
    show({candidate(CleanupRisk::safe), candidate(CleanupRisk::review), candidate(CleanupRisk::review)});
    findings.setFilter(Findings::Filter::Review);

    findings.toggle(1);

    EXPECT_TRUE(app().candidates().at(0).selected);
    EXPECT_TRUE(app().candidates().at(1).selected);
    EXPECT_FALSE(app().candidates().at(2).selected);
}

TEST_F(FindingsTest, WhatIsNeverToBeTouchedCannotBeTicked)
{
    show({candidate(CleanupRisk::never)});
    findings.toggle(0);
    EXPECT_FALSE(value(0, Findings::SelectedRole).toBool());
}

TEST_F(FindingsTest, RowsThatAreNotThereDoNothing)
{
    show({candidate(CleanupRisk::safe)});
    for (const int row : {-1, 1, 1000}) {
        EXPECT_EQ(times(app(), &AppViewModel::objectWillChange, [&] { findings.toggle(row); }), 0);
        EXPECT_TRUE(findings.candidateAt(row).isNull());
        EXPECT_FALSE(value(row, Findings::TitleRole).isValid());
    }
    EXPECT_FALSE(value(0, Qt::DisplayRole).isValid());
    EXPECT_EQ(findings.rowCount(findings.index(0)), 0); // A row holds no rows.
}

TEST_F(FindingsTest, TheSummaryIsTheExplanationOrEmpty)
{
    EXPECT_EQ(findings.summary(), QStringLiteral(""));
    EXPECT_EQ(times(findings, &Findings::summaryChanged, [this] { app().setAiSummary(demoExplanation()); }), 1);
    EXPECT_EQ(findings.summary(), demoExplanation());
    app().setAiSummary(std::nullopt);
    EXPECT_EQ(findings.summary(), QStringLiteral(""));
}

TEST_F(FindingsTest, TheReportIsShownByItsSectionAndPhase)
{
    app().setPhase(ScanPhase::results);
    app().setSection(AppSection::results);
    findings.viewReport();
    EXPECT_EQ(app().section(), AppSection::report);
    EXPECT_EQ(app().phase(), ScanPhase::report);
}

TEST_F(FindingsTest, TellWhatIsFreedOfWhatIsSelected)
{
    CleanupCandidate finding = candidate(CleanupRisk::safe);
    finding.paths = {"/a", "/b", "/b", "/c"};
    app().showResults({.snapshot = {.totals = {}, .candidates = {finding}},
                       .sizes = {{finding.id, {100'000, 50'000, 50'000, 25'000}}},
                       .linked = {{"/a", {{.device = 1, .inode = 2, .bytes = 60'000, .links = 2}}}},
                       .refused = {"/c"},
                       .unread = {.count = 4, .first = {{.path = "/x\n", .reason = QStringLiteral("Denied")}}}});
    EXPECT_EQ(findings.whatThisFrees(),
              QStringLiteral("225 KB selected. Once it is in the Trash, emptying that frees about 90 KB.\n"
                             "60 KB is linked from elsewhere.\n"
                             "50 KB is listed twice.\n"
                             "25 KB cannot be moved.\n"
                             "\n"
                             "Folders that could not be read: 4\n"
                             "/x\\n: Denied"));
}

TEST_F(FindingsTest, ShowNoExplanationAndAwaitNoneWhileExplanationsAreOff)
{
    app().setAiSummary(QStringLiteral("Some caches."));
    const auto switched = [this](bool on) {
        return [this, on] { app().defaults().set(UserDefaults::explanations, on); };
    };

    EXPECT_EQ(times(findings, &Findings::summaryChanged, switched(false)), 1);
    EXPECT_EQ(findings.summary(), QString());
    EXPECT_EQ(times(findings, &Findings::isExplainingChanged, switched(true)), 1);
    EXPECT_EQ(findings.summary(), QStringLiteral("Some caches."));

    app().setIsGeneratingAI(true);
    EXPECT_TRUE(findings.isExplaining());
    switched(false)();
    EXPECT_FALSE(findings.isExplaining());
    switched(true)();
    EXPECT_FALSE(findings.isExplaining()); // No service has been asked since.
}

} // namespace tidlo
