#include "app/AppTest.h"

#include <QCoreApplication>

#include <semaphore>

namespace tidlo {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

/// The assignments of a scan before it first suspends.
const std::vector<std::string> beginning{
    "phase: scanning",   "section: scan",        "scanProgress: 0.05",    "scanLabel: Initialising Tidlo scanner...",
    "aiSummary: absent", "isGeneratingAI: true", "cleanupReport: absent",
};

/// Its assignments when its steps begin.
const std::vector<std::string> steps{
    "scanProgress: 0.08", "scanLabel: Reading disk usage",
    "scanProgress: 0.18", "scanLabel: Finding project build & cache files",
    "scanProgress: 0.42", "scanLabel: Checking WhatsApp Desktop storage",
    "scanProgress: 0.56", "scanLabel: Checking user caches",
    "scanProgress: 0.72", "scanLabel: Checking old downloads & large untouched files",
    "scanProgress: 0.86", "scanLabel: Finding older project copies",
    "scanProgress: 1",    "scanLabel: Ready",
};

class ScanFlow : public AppTest
{
protected:
    /// Makes each deep search wait until it is asked to stop. \a meanwhile is called on the main thread.
    void holdUpSearches(const std::function<void()> &meanwhile)
    {
        ON_CALL(*files, enumerate).WillByDefault([meanwhile](const DeepEnumeration &, const std::stop_token &stop) {
            std::binary_semaphore stopped(0);
            const std::stop_callback wake(stop, [&stopped] { stopped.release(); });
            QMetaObject::invokeMethod(qApp, meanwhile);
            stopped.acquire();
            return QList<CollectedItem>();
        });
    }
};

std::vector<std::string> operator+(std::vector<std::string> left, const std::vector<std::string> &right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

} // namespace

TEST_F(ScanFlow, BeginsAtOnce)
{
    show({candidate("A")});
    model().setCleanupReport(CleanupReport());
    model().setAiSummary(QStringLiteral("Old"));
    NotificationLog log(model());

    model().startScan();

    EXPECT_THAT(log.taken(), ElementsAreArray(beginning));
    EXPECT_EQ(model().phase(), ScanPhase::scanning);
    EXPECT_EQ(model().section(), AppSection::scan);
    EXPECT_EQ(model().scanProgress(), 0.05);
    EXPECT_EQ(model().scanLabel(), QStringLiteral("Initialising Tidlo scanner..."));
    EXPECT_EQ(model().aiSummary(), std::nullopt);
    EXPECT_EQ(model().cleanupReport(), std::nullopt);
    EXPECT_TRUE(model().isGeneratingAI());
    EXPECT_EQ(model().candidates().size(), 1);
}

TEST_F(ScanFlow, ShowsProgressThenResultsThenTheExplanation)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    home.file("Sites/one/node_modules/a.js", 16'384);
    NotificationLog log(model());

    scan();

    EXPECT_THAT(log.taken(),
                ElementsAreArray(beginning + steps +
                                 std::vector<std::string>{
                                     "totals: 24576 bytes",
                                     "candidates: [+Rebuildable project folders, +User and developer caches]",
                                     "phase: results",
                                     "section: results",
                                     "isGeneratingAI: true",
                                 }));
    ASSERT_EQ(explainer.asked(), 1);
    EXPECT_EQ(explainer.candidates(0), model().candidates());

    explainer.answer(0, QStringLiteral("Some caches."));

    EXPECT_THAT(log.taken(), ElementsAre("aiSummary: Some caches.", "isGeneratingAI: false"));
    EXPECT_EQ(model().totals().recoverableBytes, 24'576);
    EXPECT_GT(model().totals().volumeBytes, 0);
}

TEST_F(ScanFlow, AsksForAnExplanationOfNothingToo)
{
    show({candidate("A")});

    scan();

    EXPECT_TRUE(model().candidates().isEmpty());
    EXPECT_EQ(model().phase(), ScanPhase::results);
    EXPECT_EQ(model().section(), AppSection::results);
    ASSERT_EQ(explainer.asked(), 1);
    EXPECT_TRUE(explainer.candidates(0).isEmpty());
}

TEST_F(ScanFlow, FindsOtherIdentifiersEachTime)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    scan();
    const QList<CleanupCandidate> first = model().candidates();

    scan();

    ASSERT_EQ(model().candidates().size(), 1);
    EXPECT_NE(model().candidates(), first);
    EXPECT_EQ(model().candidates()[0].paths, first[0].paths);
}

TEST_F(ScanFlow, ShowsTheResultsOfTheLastScanAlone)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    NotificationLog log(model());

    model().startScan();
    model().startScan();
    model().startScan();
    waitUntil([&] { return explainer.asked() > 0; });
    // Items are moved after all earlier work: each of the scans has ended by then.
    model().moveSelectedToTrash();
    waitUntil([&] { return model().section() == AppSection::report; });

    std::map<std::string, int> times;
    for (const std::string &line : log.taken())
        ++times[line];
    EXPECT_EQ(times["scanLabel: Initialising Tidlo scanner..."], 3);
    EXPECT_EQ(times["scanLabel: Ready"], 3); // The other scans run to their end as well, and move the progress bar.
    EXPECT_EQ(times["totals: 8192 bytes"], 1);
    EXPECT_EQ(times["candidates: [+User and developer caches]"], 1);
    EXPECT_EQ(times["phase: results"], 1);
    EXPECT_EQ(times["section: results"], 1);
    EXPECT_EQ(times["isGeneratingAI: true"], 4);
    EXPECT_EQ(explainer.asked(), 1);
}

TEST_F(ScanFlow, KeepsTheFormerFindingsUntilTheNextOnesCome)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    scan();
    const QList<CleanupCandidate> first = model().candidates();
    const ScanTotals totals = model().totals();

    model().startScan();
    waitUntil([&] { return model().scanProgress() == 1.0; });

    EXPECT_EQ(model().candidates(), first);
    EXPECT_EQ(model().totals(), totals);
}

TEST_F(ScanFlow, LeavesTheSummaryAbsentWhenNothingUsableCame)
{
    for (const std::optional<QString> &nothing : {std::optional<QString>(), std::optional(QStringLiteral(""))}) {
        scan();
        NotificationLog log(model());

        explainer.answer(explainer.asked() - 1, nothing);

        EXPECT_THAT(log.taken(), ElementsAre("isGeneratingAI: false"));
        EXPECT_EQ(model().aiSummary(), std::nullopt);
    }
}

TEST_F(ScanFlow, ShowsAnErrorTextInPlaceOfAnExplanation)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    scan();
    const QList<CleanupCandidate> found = model().candidates();

    explainer.answer(0, QStringLiteral("\u26A0\uFE0F Request failed: Connection refused"));

    EXPECT_EQ(model().aiSummary(), QStringLiteral("\u26A0\uFE0F Request failed: Connection refused"));
    EXPECT_FALSE(model().isGeneratingAI());
    EXPECT_EQ(model().phase(), ScanPhase::results);
    EXPECT_EQ(model().section(), AppSection::results);
    EXPECT_EQ(model().candidates(), found);
    EXPECT_EQ(model().candidates()[0].aiExplanation, std::nullopt);
    EXPECT_EQ(explainer.asked(), 1);
}

TEST_F(ScanFlow, LetsALateExplanationLandInTheNextScan)
{
    scan();
    model().startScan();
    NotificationLog log(model());

    explainer.answer(0, QStringLiteral("Late"));

    EXPECT_THAT(log.taken(), ElementsAre("aiSummary: Late", "isGeneratingAI: false"));
    EXPECT_EQ(model().phase(), ScanPhase::scanning);

    waitUntil([&] { return explainer.asked() == 2; });
    EXPECT_TRUE(model().isGeneratingAI());
    explainer.answer(1, QStringLiteral("New"));
    EXPECT_EQ(model().aiSummary(), QStringLiteral("New"));
}

TEST_F(ScanFlow, MayEndWithTheWindowBeforeItsFirstStep)
{
    model().startScan();

    closeWindow();
    letAllEnd();

    EXPECT_EQ(explainer.asked(), 0);
}

TEST_F(ScanFlow, IsStoppedInAStepWhenTheWindowCloses)
{
    bool isClosed = false;
    holdUpSearches([&] {
        closeWindow(); // Waits for the search, which ends because it is asked to stop.
        isClosed = true;
    });
    model().startScan();

    waitUntil([&] { return isClosed; });
    letAllEnd();

    EXPECT_EQ(explainer.asked(), 0);
}

TEST_F(ScanFlow, IsStoppedInAStepWhenTheApplicationQuits)
{
    holdUpSearches([] { QCoreApplication::quit(); });
    model().startScan();

    QCoreApplication::exec();
    closeWindow();
    letAllEnd();

    EXPECT_EQ(explainer.asked(), 0);
}

TEST_F(ScanFlow, MayEndWithTheWindowAtAnyStep)
{
    for (const double step : {0.08, 0.18, 0.42, 0.56, 0.72, 0.86, 1.0}) {
        model().startScan();
        waitUntil([&] { return model().scanProgress() == step; });

        closeWindow();
        letAllEnd();

        EXPECT_EQ(explainer.asked(), 0) << step;
    }
}

TEST_F(ScanFlow, MayEndWithTheWindowWhileAnExplanationIsAwaited)
{
    scan();

    closeWindow();
    explainer.answer(0, QStringLiteral("Nobody reads this."));
    letAllEnd();

    EXPECT_EQ(explainer.asked(), 1);
}

TEST_F(ScanFlow, ExplainsTheFirstEightOfMoreFindings)
{
    scan(); // Fills the list that the next lines replace while the explanation is awaited.
    explainer.answer(0, std::nullopt);
    QList<CleanupCandidate> many;
    for (int number = 0; number < 20; ++number)
        many.append(candidate("A"));
    QObject::connect(&model(), &AppViewModel::phaseChanged, &model(), [this, many] {
        if (model().phase() == ScanPhase::results)
            model().setCandidates(many);
    });

    scan();

    EXPECT_EQ(explainer.candidates(1), many.first(8));
}

TEST_F(ScanFlow, AsksNobodyWhileExplanationsAreOff)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    defaults->set(UserDefaults::explanations, false);
    bool wasAwaited = false;
    QObject::connect(&model(), &AppViewModel::isGeneratingAIChanged, &model(),
                     [&] { wasAwaited |= model().isExplanationAwaited(); });
    NotificationLog log(model());

    model().startScan();
    waitUntil([this] { return !model().isGeneratingAI() || explainer.asked() > 0; });

    EXPECT_THAT(log.taken(), ElementsAreArray(beginning + steps +
                                              std::vector<std::string>{
                                                  "totals: 8192 bytes",
                                                  "candidates: [+User and developer caches]",
                                                  "phase: results",
                                                  "section: results",
                                                  "isGeneratingAI: true",
                                                  "isGeneratingAI: false",
                                              }));
    EXPECT_EQ(explainer.asked(), 0);
    EXPECT_FALSE(wasAwaited);
    EXPECT_EQ(model().sent(), std::nullopt);
}

TEST_F(ScanFlow, CutsTheRequestAndDropsItsAnswerWhenExplanationsAreSwitchedOff)
{
    scan();
    EXPECT_TRUE(model().isExplanationAwaited());
    EXPECT_FALSE(explainer.isCut(0));

    defaults->set(UserDefaults::explanations, false);

    EXPECT_TRUE(explainer.isCut(0));
    EXPECT_FALSE(model().isExplanationAwaited());
    defaults->set(UserDefaults::explanations, true); // Too late for this scan.
    EXPECT_FALSE(model().isExplanationAwaited());
    NotificationLog log(model());
    explainer.answer(0, QStringLiteral("Late"));
    EXPECT_THAT(log.taken(), ElementsAre("isGeneratingAI: false"));
    EXPECT_EQ(model().aiSummary(), std::nullopt);
}

TEST_F(ScanFlow, AsksAgainWithTheNextScanOnceExplanationsAreSwitchedOnAgain)
{
    defaults->set(UserDefaults::explanations, false);
    model().startScan();
    defaults->set(UserDefaults::explanations, true);
    EXPECT_FALSE(model().isExplanationAwaited());
    waitUntil([this] { return !model().isGeneratingAI(); });
    EXPECT_EQ(explainer.asked(), 0);

    scan();

    EXPECT_EQ(explainer.asked(), 1);
    EXPECT_TRUE(model().isExplanationAwaited());
    EXPECT_FALSE(explainer.isCut(0));
}

TEST_F(ScanFlow, LeavesARequestAloneWhenAnotherPreferenceChanges)
{
    scan();
    bool isTold = false;
    QObject::connect(&model(), &AppViewModel::explanationsChanged, &model(), [&] { isTold = true; });

    defaults->set(UserDefaults::theme, QStringLiteral("light"));
    defaults->addPath(UserDefaults::spared, "/a");
    EXPECT_FALSE(isTold);
    defaults->set(UserDefaults::explanations, true);

    EXPECT_FALSE(explainer.isCut(0));
}

TEST_F(ScanFlow, KeepsWhatWasSentUntilTheNextScanIsExplained)
{
    home.file("Library/Caches/pip/wheel", 8'192);
    EXPECT_EQ(model().sent(), std::nullopt);

    scan();
    explainer.answer(0, QStringLiteral("Some caches."));

    const ExplainRequest first = explainRequest(model().candidates(), {.host = QStringLiteral("explain.example")});
    EXPECT_EQ(model().sent(), first);
    model().startScan();
    EXPECT_EQ(model().sent(), first);
    defaults->set(UserDefaults::explanations, false);
    waitUntil([this] { return !model().isGeneratingAI(); });
    EXPECT_EQ(model().sent(), std::nullopt);
}

} // namespace tidlo
