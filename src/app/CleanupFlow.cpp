#include "app/AppViewModel.h"

#include <QPointer>

namespace tidlo {

void AppViewModel::moveSelectedToTrash()
{
    const QList<CleanupCandidate> selected = selectedCandidates();
    if (selected.isEmpty() || state.isMovingFiles)
        return;
    const std::optional<QList<FilePath>> spared = environment.defaults->paths(UserDefaults::spared);
    if (!spared) {
        setSparedUnknown(true);
        return;
    }
    setMovingFiles(true);
    setPhase(ScanPhase::scanning);
    setSection(AppSection::scan);
    setScanProgress(0.22);
    setScanLabel(QStringLiteral("Moving selected files to Trash"));
    runCleanup(selected, *spared);
}

QCoro::Task<> AppViewModel::runCleanup(QList<CleanupCandidate> selected, QList<FilePath> spared)
{
    const std::shared_ptr<const void> held = underWay;
    const QPointer<AppViewModel> self(this);
    const Cleanup cleanup = co_await scanner.moveToTrash(std::move(selected), std::move(spared));
    if (!self)
        co_return;
    const ScanTotals totals = co_await scanner.diskTotals(environment.fileManager->homeDirectoryForCurrentUser());
    if (!self)
        co_return;
    setTotals(totals);
    publish(&AppViewModel::candidatesChanged, [this] {
        // All that is selected now, whether moved or not; the report says what really happened.
        state.candidates.removeIf([](const CleanupCandidate &candidate) {
            return candidate.selected && candidate.risk != CleanupRisk::never;
        });
    });
    state.trashed = cleanup.moved;
    setCleanup(cleanup.report, cleanup.stayed);
    setPhase(ScanPhase::report);
    setSection(AppSection::report);
    setMovingFiles(false);
}

void AppViewModel::setCleanup(std::optional<CleanupReport> report, QList<StayedItem> stayed)
{
    publish(&AppViewModel::cleanupReportChanged, [&] {
        state.cleanupReport = std::move(report);
        state.stayed = std::move(stayed);
    });
}

void AppViewModel::putEverythingBack()
{
    if (!canPutBack())
        return;
    setMovingFiles(true);
    setPhase(ScanPhase::scanning);
    setSection(AppSection::scan);
    setScanProgress(0.22);
    setScanLabel(QStringLiteral("Putting files back"));
    runPutBack();
}

QCoro::Task<> AppViewModel::runPutBack()
{
    const std::shared_ptr<const void> held = underWay;
    const QPointer<AppViewModel> self(this);
    const Restoration restoration = co_await scanner.restore(state.trashed);
    if (!self)
        co_return;
    state.trashed = restoration.left;
    setMovingFiles(false);
    startScan();
    setNotPutBack(restoration.stayed);
}

void AppViewModel::setMovingFiles(bool isMoving)
{
    state.isMovingFiles = isMoving;
    Q_EMIT isMovingFilesChanged();
}

void AppViewModel::setSparedUnknown(bool isUnknown)
{
    state.isSparedUnknown = isUnknown;
    Q_EMIT isSparedUnknownChanged();
}

void AppViewModel::setNotPutBack(const QList<StayedItem> &items)
{
    state.notPutBack = items;
    Q_EMIT notPutBackChanged();
}

} // namespace tidlo
