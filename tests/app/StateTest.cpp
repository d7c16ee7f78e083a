#include "app/AppTest.h"

#include <limits>
#include <thread>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using State = AppTest;
using StateDeathTest = AppTest;

} // namespace

TEST_F(State, HasItsInitialValues)
{
    const AppViewModel model(environment());

    EXPECT_EQ(model.phase(), ScanPhase::ready);
    EXPECT_EQ(model.section(), AppSection::scan);
    EXPECT_EQ(model.totals(), ScanTotals());
    EXPECT_EQ(model.candidates(), QList<CleanupCandidate>());
    EXPECT_EQ(model.scanProgress(), 0);
    EXPECT_EQ(model.scanLabel(), QStringLiteral("Ready to scan"));
    EXPECT_EQ(model.selectedFilter(), std::nullopt);
    EXPECT_EQ(model.cleanupReport(), std::nullopt);
    EXPECT_EQ(model.aiSummary(), std::nullopt);
    EXPECT_FALSE(model.showSetupWizard());
    EXPECT_EQ(model.setupStep(), 0);
    EXPECT_FALSE(model.showMoveToApplicationsPrompt());
    EXPECT_FALSE(model.showMoveToApplicationsError());
    EXPECT_EQ(model.moveToApplicationsErrorMessage(), QStringLiteral(""));
    EXPECT_FALSE(model.isGeneratingAI());
}

TEST_F(State, DerivesNothingFromNothing)
{
    for (const CleanupCategory category : allCases<CleanupCategory>())
        EXPECT_EQ(model().categoryBytes(category), 0);
    EXPECT_TRUE(model().visibleCandidates().isEmpty());
    EXPECT_TRUE(model().selectedCandidates().isEmpty());
    EXPECT_EQ(model().selectedBytes(), 0);
    EXPECT_EQ(model().protectedCount(), 0);
}

TEST_F(State, ReadsTheDiskSoonAfterItIsMade)
{
    ON_CALL(*files, volumeCapacity).WillByDefault([](const FilePath &) {
        return VolumeCapacity{.total = 1'000, .available = 250};
    });
    AppViewModel model(environment());
    NotificationLog log(model);

    waitUntil([&] { return model.totals() != ScanTotals(); });

    EXPECT_EQ(model.totals(), (ScanTotals{.diskUsedPercent = 0.75,
                                          .recoverablePercent = 0,
                                          .totalBytes = 0,
                                          .recoverableBytes = 0,
                                          .freeBytes = 250,
                                          .volumeBytes = 1'000}));
    EXPECT_THAT(log.taken(), ElementsAre("totals: 0 bytes"));
}

TEST_F(State, ReadsTheDiskOfTheHomeFolder)
{
    EXPECT_CALL(*files, volumeCapacity(home.path()))
        .WillOnce(testing::Return(VolumeCapacity{.total = 1, .available = 1}));

    model();
}

TEST_F(State, TellsObserversOfEveryAssignmentEvenOfAnEqualValue)
{
    OpenModel &model = this->model();
    NotificationLog log(model);
    for (int turn = 0; turn < 2; ++turn) {
        model.setPhase(ScanPhase::results);
        model.setSection(AppSection::settings);
        model.setTotals(ScanTotals());
        model.setCandidates({candidate("A")});
        model.setScanProgress(0.5);
        model.setScanLabel(QStringLiteral("Label"));
        model.setSelectedFilter(CleanupRisk::review);
        model.setCleanupReport(CleanupReport());
        model.setAiSummary(QStringLiteral("Summary"));
        model.setShowSetupWizard(true);
        model.setSetupStep(2);
        model.setShowMoveToApplicationsPrompt(true);
        model.setShowMoveToApplicationsError(true);
        model.setMoveToApplicationsErrorMessage(QStringLiteral("Message"));
        model.setIsGeneratingAI(true);

        EXPECT_THAT(log.taken(), ElementsAre("phase: results", "section: settings", "totals: 0 bytes",
                                             "candidates: [+A]", "scanProgress: 0.5", "scanLabel: Label",
                                             "selectedFilter: Review first", "cleanupReport: 0 removed, 0 protected",
                                             "aiSummary: Summary", "showSetupWizard: true", "setupStep: 2",
                                             "showMoveToApplicationsPrompt: true", "showMoveToApplicationsError: true",
                                             "moveToApplicationsErrorMessage: Message", "isGeneratingAI: true"));
    }
}

TEST_F(State, CanBeReadByTheNameOfAPropertyAndWrittenWhereViewsMay)
{
    OpenModel &model = this->model();

    EXPECT_TRUE(model.setProperty("showSetupWizard", true));
    EXPECT_TRUE(model.setProperty("selectedFilter", QVariant::fromValue(std::optional(CleanupRisk::safe))));

    EXPECT_TRUE(model.showSetupWizard());
    EXPECT_EQ(model.selectedFilter(), CleanupRisk::safe);
    EXPECT_EQ(model.property("scanLabel").toString(), QStringLiteral("Ready to scan"));
    EXPECT_FALSE(model.setProperty("scanLabel", QStringLiteral("Label")));
}

TEST_F(State, ShowsTheCandidatesThatPassTheFilterInTheirOrder)
{
    const QList<CleanupCandidate> all{candidate("A", CleanupRisk::safe), candidate("B", CleanupRisk::review),
                                      candidate("C", CleanupRisk::never), candidate("D", CleanupRisk::safe)};
    show(all);

    EXPECT_EQ(model().visibleCandidates(), all);

    model().setSelectedFilter(CleanupRisk::safe);
    EXPECT_EQ(model().visibleCandidates(), (QList<CleanupCandidate>{all[0], all[3]}));

    model().setSelectedFilter(CleanupRisk::rebuildable);
    EXPECT_TRUE(model().visibleCandidates().isEmpty());

    model().setSelectedFilter(std::nullopt);
    EXPECT_EQ(model().visibleCandidates(), all);
}

TEST_F(State, TellsTheBytesOfEachCategoryWhateverTheFilterAndTheSelection)
{
    QList<CleanupCandidate> all{candidate("A", CleanupRisk::safe, 1, CleanupCategory::caches),
                                candidate("B", CleanupRisk::review, 20, CleanupCategory::downloads),
                                candidate("C", CleanupRisk::never, 300, CleanupCategory::caches),
                                candidate("D", CleanupRisk::never, 4'000, CleanupCategory::protected_)};
    all[0].selected = false;
    show(all);
    model().setSelectedFilter(CleanupRisk::review);

    EXPECT_EQ(model().categoryBytes(CleanupCategory::caches), 301);
    EXPECT_EQ(model().categoryBytes(CleanupCategory::downloads), 20);
    EXPECT_EQ(model().categoryBytes(CleanupCategory::protected_), 4'000);
    EXPECT_EQ(model().categoryBytes(CleanupCategory::whatsApp), 0);
    EXPECT_EQ(model().protectedCount(), 2);
}

TEST_F(State, CountsWhatIsSelectedEvenIfItIsNeverToBeTouched)
{
    QList<CleanupCandidate> all{candidate("A", CleanupRisk::safe, 1), candidate("B", CleanupRisk::review, 20),
                                candidate("C", CleanupRisk::never, 300), candidate("D", CleanupRisk::never, 4'000)};
    all[1].selected = false;
    all[2].selected = true;
    show(all);

    EXPECT_EQ(model().selectedCandidates(), (QList<CleanupCandidate>{all[0], all[2]}));
    EXPECT_EQ(model().selectedBytes(), 301);
}

TEST_F(State, TogglesASelectionInAnAnimatedChange)
{
    const QList<CleanupCandidate> all{candidate("A"), candidate("B"), candidate("C")};
    show(all);
    NotificationLog log(model());

    model().toggleCandidate(all[1]);
    EXPECT_THAT(log.taken(), ElementsAre("animated: 0.24 0.86 0", "candidates: [+A, -B, +C]"));

    model().toggleCandidate(all[1]); // The candidate as it was drawn; only its identifier counts.
    EXPECT_THAT(log.taken(), ElementsAre("animated: 0.24 0.86 0", "candidates: [+A, +B, +C]"));
    EXPECT_EQ(model().candidates(), all);
}

TEST_F(State, TogglesTheFirstOfThoseWithTheSameIdentifier)
{
    const CleanupCandidate twin = candidate("A");
    show({candidate("B"), twin, twin});

    model().toggleCandidate(twin);

    EXPECT_EQ(inWords(QVariant::fromValue(model().candidates())), "[+B, -A, +A]");
}

TEST_F(State, TogglesNothingThatIsNeverToBeTouchedOrNoLongerThere)
{
    const CleanupCandidate never = candidate("A", CleanupRisk::never);
    show({never, candidate("B")});
    NotificationLog log(model());

    model().toggleCandidate(never);
    model().toggleCandidate(candidate("B"));

    EXPECT_THAT(log.taken(), IsEmpty());
}

TEST_F(State, CopiesNoListOfPathsWhenItIsRead)
{
    CleanupCandidate large = candidate("A");
    large.paths = QList<FilePath>(10'000, FilePath("/home/me/path"));
    show({large});
    const FilePath *paths = large.paths.constData();

    model().toggleCandidate(large);

    EXPECT_EQ(model().candidates().constFirst().paths.constData(), paths);
    EXPECT_EQ(model().visibleCandidates().constFirst().paths.constData(), paths);
    model().toggleCandidate(large);
    EXPECT_EQ(model().selectedCandidates().constFirst().paths.constData(), paths);
}

// This test relies on the sanitizers to find uses of destroyed objects.
TEST_F(State, MayGoAwayBeforeTheDiskIsRead)
{
    {
        const AppViewModel model(environment());
    }
    QCoreApplication::processEvents();
}

TEST_F(StateDeathTest, ASumThatDoesNotFitStopsTheProgram)
{
    const qint64 most = std::numeric_limits<qint64>::max();
    show({candidate("A", CleanupRisk::safe, most), candidate("B", CleanupRisk::safe, 1)});

    EXPECT_DEATH(model().selectedBytes(), "does not fit 64 bits");
    EXPECT_DEATH(model().categoryBytes(CleanupCategory::caches), "does not fit 64 bits");
}

TEST_F(StateDeathTest, AnyUseOnAnotherThreadStopsTheProgram)
{
    OpenModel &model = this->model();
    const std::function<void()> uses[]{
        [&] { model.phase(); },
        [&] { model.candidates(); },
        [&] { model.setPhase(ScanPhase::ready); },
        [&] { model.setSelectedFilter(std::nullopt); },
        [&] { model.categoryBytes(CleanupCategory::caches); },
        [&] { model.visibleCandidates(); },
        [&] { model.selectedCandidates(); },
        [&] { model.selectedBytes(); },
        [&] { model.protectedCount(); },
        [&] { model.toggleCandidate(candidate("A")); },
        [&] { model.startScan(); },
        [&] { model.moveSelectedToTrash(); },
        [&] { model.skipMoveToApplicationsPrompt(); },
        [&] { model.moveToApplicationsFolder(); },
        [&] { model.uninstallTidloCompletely(); },
        [&] { const AppViewModel another(environment()); },
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const QByteArray formerly = qgetenv("TMPDIR");
    qputenv("TMPDIR", home.path()); // A process that dies leaves a temporary home folder behind, which is removed with
                                    // this one.
    for (const auto &use : uses)
        EXPECT_DEATH(std::thread(use).join(), "AppViewModel was used on another thread than the main one");
    formerly.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", formerly);
}

} // namespace tidlo
