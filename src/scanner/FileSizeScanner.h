#pragma once

#include "platform/FileManager.h"
#include "scanner/MoveToTrash.h"
#include "scanner/OwnPlaces.h"
#include "scanner/RestoreItems.h"
#include "scanner/ScanContext.h"
#include "scanner/ScanResult.h"

#include <QCoro/QCoroTask>
#include <QString>

#include <functional>
#include <memory>
#include <stop_token>

namespace tidlo {

/// The one component that reads the file system for a scan and moves things to the Trash and back. This is its whole
/// public interface.
///
/// An actor: its work runs on a thread of its own, one job at a time. Operations are called on the main thread, suspend
/// there for at least one turn of the event loop while the work goes on, and never fail: what cannot be read or moved
/// contributes nothing. Destroying the scanner asks current work to stop and waits for it, a fraction of a second at
/// most; suspended coroutines still finish, with what had been done until then.
class FileSizeScanner final
{
public:
    /// Receives the fraction done, from 0 to 1, and the label of the step that begins now.
    using ProgressCallback = std::function<void(double fraction, const QString &label)>;

    explicit FileSizeScanner(std::shared_ptr<FileManager> fileManager = makeFileManager());
    ~FileSizeScanner();
    FileSizeScanner(const FileSizeScanner &) = delete;
    FileSizeScanner &operator=(const FileSizeScanner &) = delete;

    /// Runs all finding rules over the home folder, as \a wishes say. \a progress is called on the main thread
    /// before each step, and the step begins when it has returned; it is never called from within scan() itself, nor
    /// when the scanner is gone. The scan runs to its end whether or not anybody still waits for it.
    QCoro::Task<ScanResult> scan(ProgressCallback progress, ScanWishes wishes = {});

    /// Moves every path of \a candidates to the Trash, in order. Skips candidates never to be touched, and every path
    /// that is, lies in or holds one of \a spared. A requested stop ends it between two items; the report covers what
    /// was done until then.
    QCoro::Task<Cleanup> moveToTrash(QList<CleanupCandidate> candidates, QList<FilePath> spared = {},
                                     std::stop_token stop = {});

    /// Puts \a items back from the Trash to where they were. A requested stop ends it between two items.
    QCoro::Task<Restoration> restore(QList<TrashedItem> items, std::stop_token stop = {});

    /// The contents of the user's Trashes. A requested stop ends it soon, with what was found until then.
    QCoro::Task<TrashContents> trashedItems(std::stop_token stop = {});

    /// Checks \a given as a folder in which to look for projects.
    QCoro::Task<OwnPlace> ownPlace(FilePath given);

    /// The figures of the volume that holds \a home; everything that only a scan can know is 0.
    QCoro::Task<ScanTotals> diskTotals(FilePath home);

private:
    struct Core;
    std::shared_ptr<Core> core; ///< Shared with the coroutines, which may outlive the scanner.
};

} // namespace tidlo
