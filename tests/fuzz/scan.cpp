#include "fakes/FakeFileManager.h"
#include "fuzz/Input.h"
#include "model/CheckedSum.h"
#include "platform/Paths.h"
#include "scanner/FileSizeScanner.h"
#include "support/GeneratedTree.h"
#include "support/TemporaryHome.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>
#include <QEvent>

#include <algorithm>
#include <filesystem>
#include <numeric>

#include <sys/stat.h>

namespace tidlo {

namespace {

/// What deleting it would free, computed in another way. A folder above it may be a link.
qint64 allocated(const TemporaryHome &home, const FilePath &path)
{
    const std::filesystem::path item = path.toStdString();
    const std::string place = std::filesystem::canonical(item.parent_path()) / item.filename();
    const std::string name = place.substr(static_cast<size_t>(home.path().size()) + 1);
    qint64 sum = 0;
    for (const auto &[relative, entry] : home.inventory()) {
        const bool isWithin = relative == name || relative.starts_with(name + '/');
        sum += isWithin && S_ISREG(entry.mode) ? entry.blocks * 512 : 0;
    }
    return sum;
}

void check(const ScanResult &result, const TemporaryHome &home)
{
    qint64 previous = std::numeric_limits<qint64>::max();
    for (const CleanupCandidate &candidate : result.snapshot.candidates) {
        const QList<qint64> sizes = result.sizes.value(candidate.id);
        require(sizes.size() == candidate.paths.size(), "each path has a size");
        require(candidate.bytes == std::accumulate(sizes.begin(), sizes.end(), qint64(0), checkedSum),
                "a finding is as large as its paths");
        require(candidate.risk == CleanupRisk::never || candidate.bytes <= previous, "the largest comes first");
        previous = std::min(previous, candidate.bytes);
        for (qsizetype at = 0; at < sizes.size(); ++at) {
            const FilePath &path = candidate.paths.at(at);
            require(isSameOrWithin(path, home.path()) && path != home.path(), "what is listed lies in the home");
            require(candidate.paths.count(path) == 1, "a finding lists a path once");
            struct stat status;
            const bool isThere = lstat(path.constData(), &status) == 0;
            require(isThere && sizes.at(at) == (S_ISLNK(status.st_mode) ? 0 : allocated(home, path)),
                    "what is listed is there, and as large as told");
        }
    }
}

/// Without the identifiers, which are new each time.
QList<std::pair<QString, QList<FilePath>>> listed(const ScanResult &result)
{
    QList<std::pair<QString, QList<FilePath>>> all;
    for (const CleanupCandidate &candidate : result.snapshot.candidates)
        all.append({candidate.title, candidate.paths});
    return all;
}

/// Everything that exists. The access times of links are left out, since no system call preserves them.
auto unread(const TemporaryHome &home)
{
    auto all = home.inventory();
    for (auto &[path, entry] : all) {
        if (S_ISLNK(entry.mode))
            entry.accessed = {};
    }
    return all;
}

} // namespace

} // namespace tidlo

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    static int count = 1;
    static char name[] = "scan";
    static char *arguments[] = {name, nullptr};
    static const QCoreApplication application(count, arguments);

    const TemporaryHome home(TemporaryHome::parentInMemory());
    Decisions decisions({data, size});
    for (int made = 0; made < 64 && decisions.areLeft(); ++made)
        makeSomething(home.path(), decisions, namesForAScan);
    const auto before = unread(home);

    FileSizeScanner scanner(std::make_shared<testing::NiceMock<FakeFileManager>>(home.path()));
    const auto scanned = [&] { return QCoro::waitFor(scanner.scan([](double, const QString &) {})); };
    const ScanResult result = scanned();
    check(result, home);
    require(listed(scanned()) == listed(result), "a second scan finds the same");
    require(unread(home) == before, "a scan changes nothing");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
