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
/// public face.
///
/// An actor: its work runs on a thread of its own, one job at a time. Operations are called on the main thread, suspend
/// there while the work goes on, for one turn of the event loop at least, and never fail: what cannot be read or moved
/// contributes nothing. Destroying the scanner asks work under way to stop and waits for it, a fraction of a second at
/// most; coroutines that were suspended still finish, with what had been done by then.
class FileSizeScanner final
{
public:
    /// Told the fraction done, from 0 to 1, and the label of the step that begins now.
    using ProgressCallback = std::function<void(double fraction, const QString &label)>;

    explicit FileSizeScanner(std::shared_ptr<FileManager> fileManager = makeFileManager());
    ~FileSizeScanner();
    FileSizeScanner(const FileSizeScanner &) = delete;
    FileSizeScanner &operator=(const FileSizeScanner &) = delete;

    /// Runs all finding rules over the home folder, as \a wishes want it. \a progress is called on the main thread
    /// before each step, and the step begins when it has returned; it is never called from within scan() itself, nor
    /// when the scanner is gone. The scan runs to its end whether or not anybody still waits for it.
    QCoro::Task<ScanResult> scan(ProgressCallback progress, ScanWishes wishes = {});

    /// Moves every path of \a candidates to the Trash, in order, but for those never to be touched, and for what is,
    /// lies in or holds one of \a spared. A requested stop ends it between two items; the report tells what was done
    /// until then.
    QCoro::Task<Cleanup> moveToTrash(QList<CleanupCandidate> candidates, QList<FilePath> spared = {},
                                     std::stop_token stop = {});

    /// Puts \a items back from the Trash to where they were. A requested stop ends it between two items.
    QCoro::Task<Restoration> restore(QList<TrashedItem> items, std::stop_token stop = {});

    /// What the user's Trashes hold. A requested stop ends it soon, with what was found until then.
    QCoro::Task<TrashContents> trashedItems(std::stop_token stop = {});

    /// What is at \a given, to look for project folders there.
    QCoro::Task<OwnPlace> ownPlace(FilePath given);

    /// The figures of the volume that holds \a home; everything that only a scan can know is 0.
    QCoro::Task<ScanTotals> diskTotals(FilePath home);

private:
    struct Core;
    std::shared_ptr<Core> core; ///< Shared with the coroutines, which may outlive the scanner.
};

} // namespace tidlo
