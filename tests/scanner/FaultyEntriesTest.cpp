// What cannot be asked about counts as not there: with errors of every kind, a scan finds what it finds in the same
// tree without the entries that they hit.

#include "platform/Paths.h"
#include "scanner/ScannerTest.h"
#include "support/EveryFinding.h"

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <random>
#include <tuple>
#include <utility>

namespace tidlo {

namespace {

using FaultyEntries = ScannerTest;
using Listed = QList<std::tuple<QString, QList<FilePath>, qint64>>;

constexpr int trees = 40;

/// Those that decide about other entries, since siblings are asked for by name alone.
bool isMarker(const FilePath &path)
{
    return path.endsWith(".json");
}

/// One entry in six beneath \a home, none within another.
QList<FilePath> someOf(const FilePath &home, std::mt19937 &chance)
{
    QList<FilePath> entries;
    namespace fs = std::filesystem;
    for (fs::recursive_directory_iterator entry(home.toStdString()), end; entry != end; ++entry) {
        const FilePath path = FilePath::fromStdString(entry->path().native());
        if (isMarker(path) || chance() % 6 != 0)
            continue;
        entries.append(path);
        entry.disable_recursion_pending();
    }
    return entries;
}

/// Takes entries out of a tree for as long as it exists; nothing else of the tree looks changed.
class Absence final
{
public:
    explicit Absence(const QList<FilePath> &entries)
        : entries(entries)
    {
        for (qsizetype at = 0; at < entries.size(); ++at)
            move(entries.at(at), aside / FilePath::number(at), entries.at(at));
    }
    ~Absence()
    {
        for (qsizetype at = 0; at < entries.size(); ++at)
            move(aside / FilePath::number(at), entries.at(at), entries.at(at));
    }

private:
    static void move(const FilePath &from, const FilePath &to, const FilePath &entry)
    {
        const auto folder = std::filesystem::path(entry.toStdString()).parent_path();
        const auto modified = last_write_time(folder);
        std::filesystem::rename(from.toStdString(), to.toStdString());
        last_write_time(folder, modified);
    }

    const QList<FilePath> entries;
    const TemporaryHome aside;
};

Listed listed(const ScanSnapshot &snapshot)
{
    Listed all;
    for (const CleanupCandidate &candidate : snapshot.candidates)
        all.append({candidate.title, candidate.paths, candidate.bytes});
    return all;
}

/// More of what rules look for, deep and side by side.
void addMore(const TemporaryHome &home)
{
    const FileTime old = std::chrono::system_clock::now() - std::chrono::days(90);
    for (const char *path :
         {"Sites/a/node_modules/b/c", "Sites/a/node_modules/d", "Sites/deep/er/web/coverage/x/y",
          "Sites/deep/node_modules/z", ".cache/one/two/three", ".cache/one/four", "Library/Caches/pip/wheel/x",
          "Library/Caches/pip/y", "Downloads/folder/b.zip", "Downloads/c.dmg"})
        home.file(path, 5'000);
    for (const char *path : {"Downloads/folder/b.zip", "Downloads/c.dmg"})
        home.setModified(path, old);
}

} // namespace

TEST_F(FaultyEntries, CountAsNotThereWhateverIsAskedOfThem)
{
    QList<FilePath> faulty;
    const auto isHit = [&faulty](const FilePath &path) {
        return std::ranges::any_of(faulty, [&path](const FilePath &entry) { return isSameOrWithin(path, entry); });
    };
    const auto hiddenIn = [&](const FilePath &item) { // Bytes that nobody can tell because of errors beneath.
        QList<FilePath> hidden;
        std::ranges::copy_if(faulty, std::back_inserter(hidden),
                             [&item](const FilePath &entry) { return isSameOrWithin(entry, item); });
        const QList<qint64> sizes = files.live().allocatedSizes(hidden);
        return std::accumulate(sizes.begin(), sizes.end(), qint64(0));
    };
    ON_CALL(files, fileExists).WillByDefault([&](const FilePath &path) {
        return !isHit(path) && files.live().fileExists(path);
    });
    ON_CALL(files, attributesOfItem).WillByDefault([&](const FilePath &path) {
        return isHit(path) ? std::nullopt : files.live().attributesOfItem(path);
    });
    ON_CALL(files, contentsOfDirectory).WillByDefault([&](const FilePath &folder, WalkNotes *notes) {
        auto entries = isHit(folder) ? std::nullopt : files.live().contentsOfDirectory(folder, notes);
        if (entries)
            entries->removeIf([&](const DirectoryEntry &entry) { return isHit(entry.path); });
        return entries;
    });
    ON_CALL(files, enumerate).WillByDefault([&](DeepEnumeration enumeration, const std::stop_token &stop) {
        enumeration.roots.removeIf(
            [&](const FilePath &root) { return !isSameOrWithin(root, home.path()) || isHit(root); });
        QList<CollectedItem> items = files.live().enumerate(enumeration, stop);
        items.removeIf([&](const CollectedItem &item) { return isHit(item.path); });
        for (CollectedItem &item : items)
            item.allocatedSize -= item.isLeftOut ? 0 : hiddenIn(item.path);
        return items;
    });
    ON_CALL(files, allocatedSizes)
        .WillByDefault([&](const QList<FilePath> &paths, const std::stop_token &stop, WalkNotes *notes) {
            QList<qint64> sizes = files.live().allocatedSizes(paths, stop, notes);
            for (qsizetype at = 0; at < paths.size(); ++at)
                sizes[at] = isHit(paths.at(at)) ? 0 : sizes.at(at) - hiddenIn(paths.at(at));
            return sizes;
        });

    addEveryFinding(home);
    addMore(home);
    std::mt19937 chance(1);
    for (int tree = 0; tree < trees; ++tree) {
        faulty = someOf(home.path(), chance);
        const Listed withErrors = listed(scanned());

        const Absence absence(std::exchange(faulty, {}));
        ASSERT_EQ(withErrors, listed(scanned())) << "in the tree " << tree;
    }
}

} // namespace tidlo
