#pragma once

#include "scanner/FileSizeScanner.h"
#include "scanner/RuleTest.h"

#include <QCoreApplication>

#include <semaphore>

namespace tidlo {

/// A scanner on a real home folder, with the event loop that its coroutines need.
class ScannerTest : public RuleTest
{
protected:
    /// Lets suspended coroutines end.
    void TearDown() override
    {
        scanner.reset();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::shared_ptr<FileManager> sharedFiles() { return {std::shared_ptr<void>(), &files}; }

    ScanResult result()
    {
        return QCoro::waitFor(scanner->scan([](double, const QString &) {}));
    }

    ScanSnapshot scanned() { return result().snapshot; }

    /// \a before is called when each operation of the file manager begins, on the thread that runs it.
    void watch(const std::function<void(const char *operation)> &before)
    {
        ON_CALL(files, homeDirectoryForCurrentUser).WillByDefault([this, before] {
            before("home");
            return home.path();
        });
        ON_CALL(files, fileExists).WillByDefault([this, before](const FilePath &path) {
            before("exists");
            return files.live().fileExists(path);
        });
        ON_CALL(files, contentsOfDirectory).WillByDefault([this, before](const FilePath &path, WalkNotes *notes) {
            before("contents");
            return files.live().contentsOfDirectory(path, notes);
        });
        ON_CALL(files, enumerate).WillByDefault([before](const DeepEnumeration &, const std::stop_token &) {
            before("enumerate");
            return QList<CollectedItem>();
        });
        ON_CALL(files, allocatedSizes)
            .WillByDefault([this, before](const QList<FilePath> &paths, const std::stop_token &stop, WalkNotes *notes) {
                before("sizes");
                return files.live().allocatedSizes(paths, stop, notes);
            });
        ON_CALL(files, volumeCapacity).WillByDefault([this, before](const FilePath &path) {
            before("capacity");
            return files.live().volumeCapacity(path);
        });
        ON_CALL(files, trashItem).WillByDefault([before](const FilePath &) {
            before("trash");
            return TrashOutcome{.kind = TrashOutcome::Kind::moved, .reason = {}};
        });
    }

    /// Makes each deep search wait until it is asked to stop; \a meanwhile is called on the main thread.
    void holdUpSearches(const std::function<void()> &meanwhile)
    {
        ON_CALL(files, enumerate).WillByDefault([&, meanwhile](const DeepEnumeration &, const std::stop_token &stop) {
            std::binary_semaphore stopped(0);
            const std::stop_callback wake(stop, [&stopped] { stopped.release(); });
            QMetaObject::invokeMethod(&application, meanwhile);
            stopped.acquire();
            return QList<CollectedItem>();
        });
    }

    int argumentCount = 1;
    char programName[16] = "scanner_tests";
    char *arguments[2] = {programName, nullptr};
    QCoreApplication application{argumentCount, arguments};
    std::unique_ptr<FileSizeScanner> scanner = std::make_unique<FileSizeScanner>(sharedFiles());
};

} // namespace tidlo
