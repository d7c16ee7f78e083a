#include "scanner/FileSizeScanner.h"

#include "scanner/ScanSteps.h"
#include "scanner/ScanSummary.h"
#include "scanner/SerialExecutor.h"

#include <QCoro/QCoroFuture>
#include <QCoro/QCoroTimer>

namespace tidlo {

using namespace std::chrono_literals;

namespace {

/// The result of a job, delivered at least one turn of the event loop later: never from within the call that asked for
/// it, and never before progress reported until then could be shown.
template <typename Result>
QCoro::Task<Result> later(QFuture<Result> result)
{
    co_await QCoro::sleepFor(0ms);
    co_return co_await result;
}

} // namespace

/// Its operations are coroutines that hold the core, and nothing of the scanner, while they are suspended.
struct FileSizeScanner::Core
{
    std::shared_ptr<FileManager> files;
    std::stop_source stop;
    SerialExecutor executor;

    QFuture<ScanHarvest> run(const ScanStep &step, const ScanWishes &wishes, const std::shared_ptr<WalkNotes> &notes,
                             const ScanHarvest &harvest);
    static QCoro::Task<ScanResult> scan(std::shared_ptr<Core> core, ProgressCallback progress, ScanWishes wishes);
};

QFuture<ScanHarvest> FileSizeScanner::Core::run(const ScanStep &step, const ScanWishes &wishes,
                                                const std::shared_ptr<WalkNotes> &notes, const ScanHarvest &harvest)
{
    return executor.run([files = files, stop = stop.get_token(), run = step.run, wishes, notes, harvest] {
        ScanHarvest result = harvest;
        if (!stop.stop_requested())
            run({*files, files->homeDirectoryForCurrentUser(), placesOf(wishes.spared), wishes.also, notes.get(), stop},
                result);
        return result;
    });
}

QCoro::Task<ScanResult> FileSizeScanner::Core::scan(std::shared_ptr<Core> core, ProgressCallback progress,
                                                    ScanWishes wishes)
{
    co_await QCoro::sleepFor(0ms); // One turn of the event loop: progress is never reported from within the call.
    ScanHarvest harvest;
    const auto notes = std::make_shared<WalkNotes>();
    for (const ScanStep &step : scanSteps) {
        if (core->stop.stop_requested())
            co_return summarized(harvest.disk, harvest.findings); // The scanner is gone; nobody wants progress.
        progress(step.fraction, step.label);
        harvest = co_await later(core->run(step, wishes, notes, harvest));
    }
    const auto sumUp = [harvest, notes, files = core->files] {
        ScanResult result = summarized(harvest.disk, harvest.findings);
        prepareForecast(result, *files, *notes);
        return result;
    };
    const ScanResult result = co_await later(core->executor.run(sumUp));
    if (!core->stop.stop_requested()) {
        progress(ScanEnd().fraction, ScanEnd().label);
        co_await QCoro::sleepFor(0ms);
    }
    co_return result;
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

QCoro::Task<ScanResult> FileSizeScanner::scan(ProgressCallback progress, ScanWishes wishes)
{
    return Core::scan(core, std::move(progress), std::move(wishes));
}

QCoro::Task<Cleanup> FileSizeScanner::moveToTrash(QList<CleanupCandidate> candidates, QList<FilePath> spared,
                                                  std::stop_token stop)
{
    const auto job = [files = core->files, candidates = std::move(candidates), spared = std::move(spared),
                      stop = std::move(stop), end = core->stop.get_token()] {
        return tidlo::moveToTrash(*files, candidates, placesOf(spared),
                                  [&] { return stop.stop_requested() || end.stop_requested(); });
    };
    return later(core->executor.run(job));
}

QCoro::Task<Restoration> FileSizeScanner::restore(QList<TrashedItem> items, std::stop_token stop)
{
    const auto job = [files = core->files, items = std::move(items), stop = std::move(stop),
                      end = core->stop.get_token()] {
        return restoreItems(*files, items, [&] { return stop.stop_requested() || end.stop_requested(); });
    };
    return later(core->executor.run(job));
}

QCoro::Task<TrashContents> FileSizeScanner::trashedItems(std::stop_token stop)
{
    const auto job = [files = core->files, stop = std::move(stop), end = core->stop.get_token()] {
        std::stop_source either;
        const auto request = [&] { either.request_stop(); };
        const std::stop_callback whenStopped(stop, request);
        const std::stop_callback whenEnded(end, request);
        return files->trashedItems(either.get_token());
    };
    return later(core->executor.run(job));
}

QCoro::Task<OwnPlace> FileSizeScanner::ownPlace(FilePath given)
{
    const auto job = [files = core->files, given = std::move(given)] { return ownPlaceAt(*files, given); };
    return later(core->executor.run(job));
}

QCoro::Task<ScanTotals> FileSizeScanner::diskTotals(FilePath home)
{
    const auto job = [files = core->files, home = std::move(home)] { return tidlo::diskTotals(*files, home); };
    return later(core->executor.run(job));
}

} // namespace tidlo
