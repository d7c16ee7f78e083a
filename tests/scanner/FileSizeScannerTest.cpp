#include "scanner/ScannerTest.h"
#include "support/Patience.h"

#include <QThread>
#include <QTimer>

#include <atomic>
#include <cmath>
#include <csignal>
#include <mutex>
#include <new>
#include <semaphore>
#include <set>
#include <thread>

#include <sys/resource.h>

namespace tidlo {

using testing::ElementsAre;
using testing::Pair;
using testing::Return;

namespace {

/// Records events in order, from any thread.
class EventLog final
{
public:
    void add(const std::string &event)
    {
        const std::lock_guard lock(mutex);
        if (events.empty() || events.back() != event) // One entry for a run of equal calls.
            events.push_back(event);
    }
    std::vector<std::string> all() const { return events; }

private:
    std::mutex mutex;
    std::vector<std::string> events;
};

using FileSizeScannerTest = ScannerTest;

} // namespace

TEST_F(FileSizeScannerTest, TellsSevenStepsInOrder)
{
    QList<std::pair<double, QString>> told;
    QCoro::waitFor(scanner->scan([&told](double fraction, const QString &label) { told.append({fraction, label}); }));
    EXPECT_THAT(told, ElementsAre(Pair(0.08, u"Reading disk usage"), Pair(0.18, u"Finding project build & cache files"),
                                  Pair(0.42, u"Checking WhatsApp Desktop storage"), Pair(0.56, u"Checking user caches"),
                                  Pair(0.72, u"Checking old downloads & large untouched files"),
                                  Pair(0.86, u"Finding older project copies"), Pair(1.0, u"Ready")));
}

TEST_F(FileSizeScannerTest, BeginsEachStepWhenItsProgressHasReturned)
{
    EventLog log;
    home.folder("Downloads");
    watch([&log](const char *operation) { log.add(operation); });
    QCoro::waitFor(scanner->scan([&log](double fraction, const QString &) {
        log.add("begin " + std::to_string(std::lround(fraction * 100)));
        QCoreApplication::processEvents(); // Handles events of any work that is still under way.
        log.add("end " + std::to_string(std::lround(fraction * 100)));
    }));
    EXPECT_THAT(log.all(), ElementsAre("begin 8", "end 8", "home", "capacity",                         //
                                       "begin 18", "end 18", "home", "enumerate",                      //
                                       "begin 42", "end 42", "home", "exists", "sizes",                //
                                       "exists", "sizes",                                              //
                                       "begin 56", "end 56", "home", "exists", "sizes",                //
                                       "begin 72", "end 72", "home", "contents", "sizes", "enumerate", //
                                       "begin 86", "end 86", "home", "contents", "sizes",              //
                                       "home", "begin 100", "end 100"));
}

#ifndef Q_OS_MACOS // On macOS a thread has another kind of priority.
TEST_F(FileSizeScannerTest, StandsBackBehindTheMainThread)
{
    const int mine = getpriority(PRIO_PROCESS, 0);
    std::atomic<int> leastOfIts = 99;
    watch([&](const char *) { leastOfIts = std::min<int>(leastOfIts, getpriority(PRIO_PROCESS, 0)); });

    QCoro::waitFor(scanner->scan([](double, const QString &) {}));

    EXPECT_GT(leastOfIts, mine);
    EXPECT_LT(leastOfIts, 99);
    EXPECT_EQ(getpriority(PRIO_PROCESS, 0), mine);
}
#endif

TEST_F(FileSizeScannerTest, TellsProgressOnTheMainThreadAndWorksOnAnother)
{
    const QThread *mainThread = QThread::currentThread();
    std::atomic<int> operationsOnMainThread = 0;
    std::atomic<int> operations = 0;
    watch([&](const char *) {
        ++operations;
        operationsOnMainThread += QThread::currentThread() == mainThread;
    });
    QCoro::waitFor(
        scanner->scan([mainThread](double, const QString &) { EXPECT_EQ(QThread::currentThread(), mainThread); }));
    QCoro::waitFor(scanner->diskTotals(home.path()));
    CleanupCandidate candidate;
    candidate.paths = {home.file("a")};
    QCoro::waitFor(scanner->moveToTrash({candidate}));
    EXPECT_EQ(operationsOnMainThread, 0);
    EXPECT_GT(operations, 20);
}

TEST_F(FileSizeScannerTest, NeverTellsProgressFromWithinTheCall)
{
    int told = 0;
    const QCoro::Task<ScanResult> task = scanner->scan([&told](double, const QString &) { ++told; });
    EXPECT_EQ(told, 0);
    QCoro::waitFor(task);
    EXPECT_EQ(told, 7);
}

TEST_F(FileSizeScannerTest, RunsToItsEndThoughNobodyWaits)
{
    double last = 0;
    {
        const QCoro::Task<ScanResult> dropped = scanner->scan([&last](double fraction, const QString &) {
            last = fraction;
            if (fraction == 1.0)
                QCoreApplication::quit();
        });
    }
    QCoreApplication::exec();
    EXPECT_EQ(last, 1.0);
}

TEST_F(FileSizeScannerTest, NeverRunsStepsOfTwoScansAtOnce)
{
    // Given a first search that waits until the main thread runs: then the other scan has work to do as well.
    std::mutex mutex;
    std::set<const QThread *> threads;
    watch([&](const char *) {
        const std::lock_guard lock(mutex);
        threads.insert(QThread::currentThread());
    });
    std::atomic<bool> isFirst = true;
    ON_CALL(files, enumerate).WillByDefault([&](const DeepEnumeration &, const std::stop_token &) {
        if (isFirst.exchange(false)) {
            std::binary_semaphore isReached(0);
            QMetaObject::invokeMethod(&application, [&isReached] { isReached.release(); });
            isReached.acquire();
        }
        return QList<CollectedItem>();
    });

    // When
    int steps = 0;
    const auto progress = [&steps](double, const QString &) { ++steps; };
    const QCoro::Task<ScanResult> first = scanner->scan(progress);
    const QCoro::Task<ScanResult> second = scanner->scan(progress);
    QCoro::waitFor(first);
    QCoro::waitFor(second);

    // Then all work was done on one thread, which cannot do two things at once.
    EXPECT_EQ(steps, 14);
    EXPECT_EQ(threads.size(), 1);
}

TEST_F(FileSizeScannerTest, CanBeDestroyedWhileAScanWorks)
{
    QList<double> told;
    holdUpSearches([this] { scanner.reset(); });
    EXPECT_CALL(files, fileExists).Times(0);
    const ScanResult result =
        QCoro::waitFor(scanner->scan([&told](double fraction, const QString &) { told.append(fraction); }));
    EXPECT_THAT(told, ElementsAre(0.08, 0.18));
    EXPECT_GT(result.snapshot.totals.volumeBytes, 0);
}

TEST_F(FileSizeScannerTest, WaitsForTheStepOfAScanWhenItIsDestroyed)
{
    std::atomic<bool> hasEnded = false;
    const auto destroy = [&] {
        scanner.reset(); // Asks the step to stop.
        EXPECT_TRUE(hasEnded);
    };
    ON_CALL(files, enumerate).WillByDefault([&](const DeepEnumeration &, const std::stop_token &stop) {
        std::binary_semaphore stopped(0);
        const std::stop_callback wake(stop, [&stopped] { stopped.release(); });
        QMetaObject::invokeMethod(&application, destroy);
        stopped.acquire();
        for (int turn = 0; turn < 1'000; ++turn)
            std::this_thread::yield();
        hasEnded = true;
        return QList<CollectedItem>();
    });
    scanned();
}

TEST_F(FileSizeScannerTest, StopsReadingTrashesWhenItIsDestroyed)
{
    std::binary_semaphore begun(0);
    std::atomic<bool> hasEnded = false;
    ON_CALL(files, trashedItems).WillByDefault([&](const std::stop_token &stop) {
        std::binary_semaphore stopped(0);
        const std::stop_callback wake(stop, [&stopped] { stopped.release(); });
        begun.release();
        hasEnded = stopped.try_acquire_for(std::chrono::milliseconds(patience));
        return TrashContents();
    });
    const auto contents = scanner->trashedItems();
    begun.acquire();
    scanner.reset(); // Asks it to stop.
    EXPECT_TRUE(hasEnded);
    QCoro::waitFor(contents);
}

TEST_F(FileSizeScannerTest, CanBeDestroyedByTheProgressItTells)
{
    EXPECT_CALL(files, enumerate).Times(0);
    QList<double> told;
    QCoro::waitFor(scanner->scan([this, &told](double fraction, const QString &) {
        told.append(fraction);
        if (fraction == 0.18)
            scanner.reset();
    }));
    EXPECT_THAT(told, ElementsAre(0.08, 0.18));
}

TEST_F(FileSizeScannerTest, CanBeDestroyedBeforeAScanBegan)
{
    const QCoro::Task<ScanResult> task =
        scanner->scan([](double, const QString &) { ADD_FAILURE() << "The scanner is gone."; });
    const QCoro::Task<ScanTotals> totals = scanner->diskTotals(home.path());
    scanner.reset();
    EXPECT_EQ(QCoro::waitFor(task).snapshot, ScanSnapshot());
    EXPECT_GT(QCoro::waitFor(totals).volumeBytes, 0);
}

TEST_F(FileSizeScannerTest, CanBeDestroyedAndNeverWaitedFor)
{
    scanner->scan([](double, const QString &) { ADD_FAILURE() << "The scanner is gone."; });
    scanner->diskTotals(home.path());
    scanner.reset();
}

TEST_F(FileSizeScannerTest, MovesToTheTrashAndReportsIt)
{
    ON_CALL(files, volumeCapacity).WillByDefault(Return(VolumeCapacity{.total = 1'000, .available = 250}));
    CleanupCandidate candidate;
    candidate.paths = {home.file("a"), "~/b"};
    candidate.bytes = 101;
    home.file("b");
    EXPECT_EQ(QCoro::waitFor(scanner->moveToTrash({candidate})).report,
              (CleanupReport{
                  .recoveredBytes = 100, .removedItems = 2, .finalDiskUsedPercent = 0.75, .aiSummary = std::nullopt}));
}

TEST_F(FileSizeScannerTest, StopsMovingBetweenTwoItemsWhenAsked)
{
    std::stop_source stop;
    CleanupCandidate candidate;
    candidate.paths = {home.file("a"), home.file("b")};
    EXPECT_CALL(files, trashItem(home / "a")).WillOnce([&stop](const FilePath &) {
        stop.request_stop();
        return TrashOutcome{.kind = TrashOutcome::Kind::moved, .reason = {}};
    });
    EXPECT_CALL(files, trashItem(home / "b")).Times(0);
    EXPECT_EQ(QCoro::waitFor(scanner->moveToTrash({candidate}, {}, stop.get_token())).report.removedItems, 1);
}

TEST_F(FileSizeScannerTest, PutsBackUntilItIsAskedToStop)
{
    std::stop_source stop;
    CleanupCandidate candidate;
    candidate.paths = {home.file("a"), home.file("b")};
    const QList<TrashedItem> moved = QCoro::waitFor(scanner->moveToTrash({candidate})).moved;
    EXPECT_EQ(QCoro::waitFor(scanner->restore({moved[0]}, stop.get_token())).restored, moved.first(1));
    stop.request_stop();
    const Restoration stopped = QCoro::waitFor(scanner->restore({moved[1]}, stop.get_token()));
    EXPECT_TRUE(stopped.restored.isEmpty());
    EXPECT_EQ(stopped.left, moved.last(1));
}

TEST_F(FileSizeScannerTest, MovesNothingMoreOnceDestroyed)
{
    // Given a move that waits behind a scan, which ends when the scanner does.
    CleanupCandidate candidate;
    candidate.paths = {home.file("a")};
    std::optional<QCoro::Task<Cleanup>> move;
    holdUpSearches([&] {
        move = scanner->moveToTrash({candidate});
        scanner.reset();
    });
    EXPECT_CALL(files, trashItem).Times(0);

    // When
    scanned();

    // Then
    EXPECT_EQ(QCoro::waitFor(*move).report.removedItems, 0);
}

TEST_F(FileSizeScannerTest, NeverEndsFromWithinTheCallHoweverLittleThereIsToDo)
{
    ON_CALL(files, volumeCapacity).WillByDefault(testing::Return(std::nullopt));
    ON_CALL(files, fileSystemAttributes).WillByDefault(testing::Return(std::nullopt));
    for (int turn = 0; turn < 2'000; ++turn) {
        auto totals = scanner->diskTotals(home.path());
        auto report = scanner->moveToTrash({});

        ASSERT_FALSE(totals.isReady()) << turn;
        ASSERT_FALSE(report.isReady()) << turn;

        QCoro::waitFor(totals);
        QCoro::waitFor(report);
    }
}

TEST_F(FileSizeScannerTest, TellsTheTotalsOfAnyHome)
{
    EXPECT_CALL(files, volumeCapacity(FilePath("/elsewhere")))
        .WillOnce(Return(VolumeCapacity{.total = 1'000, .available = 250}));
    EXPECT_EQ(QCoro::waitFor(scanner->diskTotals("/elsewhere")),
              (ScanTotals{.diskUsedPercent = 0.75, .freeBytes = 250, .volumeBytes = 1'000}));
}

TEST_F(FileSizeScannerTest, EndsTheProgramWhereNoMemoryIsLeftSinceNobodyWouldHearOfIt)
{
    ON_CALL(files, homeDirectoryForCurrentUser).WillByDefault([]() -> FilePath { throw std::bad_alloc(); });
    EXPECT_EXIT(scanned(), testing::KilledBySignal(SIGABRT), "bad_alloc");
}

} // namespace tidlo
