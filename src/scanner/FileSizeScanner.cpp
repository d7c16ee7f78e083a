#include "scanner/FileSizeScanner.h"

#include "scanner/DiskTotals.h"
#include "scanner/MoveToTrash.h"
#include "scanner/ScanSteps.h"
#include "scanner/SerialExecutor.h"

#include <QCoro/QCoroFuture>
#include <QCoro/QCoroTimer>

using namespace std::chrono_literals;

namespace {

/// The result of a job, after a turn of the event loop at least: not from within the call that asked for it, and not
/// before what was told until then could be seen.
template <typename Result>
QCoro::Task<Result> later(QFuture<Result> result)
{
    co_await QCoro::sleepFor(0ms);
    co_return co_await result;
}

} // namespace

/// Its operations are coroutines that hold it, and nothing of the scanner, across their suspensions.
struct FileSizeScanner::Core
{
    std::shared_ptr<FileManager> files;
    std::stop_source stop;
    SerialExecutor executor;

    QFuture<ScanSnapshot> run(const ScanStep &step, const ScanSnapshot &snapshot);
    static QCoro::Task<ScanSnapshot> scan(std::shared_ptr<Core> core, ProgressCallback progress);
};

QFuture<ScanSnapshot> FileSizeScanner::Core::run(const ScanStep &step, const ScanSnapshot &snapshot)
{
    return executor.run([files = files, stop = stop.get_token(), run = step.run, snapshot] {
        ScanSnapshot result = snapshot;
        if (!stop.stop_requested())
            run({*files, files->homeDirectoryForCurrentUser(), stop}, result);
        return result;
    });
}

QCoro::Task<ScanSnapshot> FileSizeScanner::Core::scan(std::shared_ptr<Core> core, ProgressCallback progress)
{
    co_await QCoro::sleepFor(0ms); // A turn of the event loop: nothing is told from within the call.
    ScanSnapshot snapshot;
    for (const ScanStep &step : scanSteps) {
        if (core->stop.stop_requested())
            break; // The scanner is gone; nobody it knew may be called any more.
        progress(step.fraction, step.label);
        snapshot = co_await later(core->run(step, snapshot));
    }
    co_return snapshot;
}

FileSizeScanner::FileSizeScanner(std::shared_ptr<FileManager> fileManager)
    : core(std::make_shared<Core>())
{
    core->files = std::move(fileManager);
}

FileSizeScanner::~FileSizeScanner()
{
    core->stop.request_stop();
    core->executor.waitForDone();
}

QCoro::Task<ScanSnapshot> FileSizeScanner::scan(ProgressCallback progress)
{
    return Core::scan(core, std::move(progress));
}

QCoro::Task<CleanupReport> FileSizeScanner::moveToTrash(QList<CleanupCandidate> candidates, std::stop_token stop)
{
    const auto job = [files = core->files, candidates = std::move(candidates), stop = std::move(stop),
                      end = core->stop.get_token()] {
        return ::moveToTrash(*files, candidates, [&] { return stop.stop_requested() || end.stop_requested(); });
    };
    return later(core->executor.run(job));
}

QCoro::Task<ScanTotals> FileSizeScanner::diskTotals(FilePath home)
{
    const auto job = [files = core->files, home = std::move(home)] { return ::diskTotals(*files, home); };
    return later(core->executor.run(job));
}
