#include "fakes/FakeFileManager.h"
#include "platform/DirectoryWalker.h"
#include "platform/Paths.h"
#include "scanner/BrokenSystem.h"
#include "scanner/ScanSteps.h"
#include "scanner/ScanSummary.h"
#include "support/EveryFinding.h"
#include "support/GeneratedTree.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <map>
#include <random>
#include <set>

#include <fcntl.h>
#include <sys/stat.h>

namespace tidlo {

using testing::NiceMock;

namespace {

// A scan of a broken disk finds what it would find without the broken entries, with these exceptions:
//
// - All calls about an entry fail: its folder still reports its name, and on most file systems its type. So a folder
// that
//   is recognised by its name is listed, with none of its bytes counted. Everything else is as if it did not exist.
// - One kind of call fails while all others work, or a single call fails: each rule makes its own calls, so one may see
//   an entry that another does not. Each finding is as with the entry or as without it: paths listed in both cases are
//   listed, paths listed in neither are not, and the bytes counted lie between the two.

constexpr std::array errors{EIO,    EACCES,       EPERM,  ENOENT, ENOTDIR,  ELOOP, ENOMEM,    EMFILE,
                            ENFILE, ENAMETOOLONG, ESTALE, ENODEV, ENOTCONN, EXDEV, EOVERFLOW, EINTR};

/// Whether a finding lists folders by their name alone, and \a path is a folder.
bool isKnownByName(const QString &title, const FilePath &path)
{
    constexpr std::array kinds{FindingKind::projectFolders, FindingKind::composerFolders, FindingKind::buildOutputs};
    struct stat status;
    return std::ranges::any_of(kinds, [&title](FindingKind kind) { return title == rowOf(kind).title; }) &&
           lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// With these errors there is no folder that could be read.
bool tellsThatNothingIsThere(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ELOOP || error == EXDEV;
}

/// The bytes of each listed path, by the finding's title and the path.
using Listed = std::map<std::pair<QString, FilePath>, qint64>;

Listed listedBy(const ScanResult &result)
{
    Listed listed;
    for (const CleanupCandidate &candidate : result.snapshot.candidates) {
        const QList<qint64> sizes = result.sizes.value(candidate.id);
        EXPECT_EQ(sizes.size(), candidate.paths.size());
        for (qsizetype at = 0; at < sizes.size(); ++at)
            listed[{candidate.title, candidate.paths.at(at)}] = sizes.at(at);
    }
    return listed;
}

/// While it exists, an entry is in another place; the times of its folder do not change.
class Away final
{
public:
    /// \a other is its place meanwhile.
    Away(const FilePath &path, const FilePath &other)
        : path(path)
        , other(other)
        , isThere(move(path, other))
    {}
    ~Away()
    {
        if (isThere)
            move(other, path);
    }
    Away(const Away &) = delete;
    Away &operator=(const Away &) = delete;

private:
    bool move(const FilePath &from, const FilePath &to) const
    {
        const FilePath folder = path.left(path.lastIndexOf('/'));
        struct stat status;
        if (lstat(folder.constData(), &status) != 0 || rename(from.constData(), to.constData()) != 0)
            return false;
        const std::array times{status.st_atim, status.st_mtim};
        return utimensat(AT_FDCWD, folder.constData(), times.data(), 0) == 0;
    }

    const FilePath path;
    const FilePath other;
    const bool isThere;
};

class ScanAmidErrorsTest : public testing::TestWithParam<unsigned>
{
protected:
    ScanAmidErrorsTest()
    {
        ON_CALL(files, enumerate).WillByDefault([this](DeepEnumeration enumeration, const std::stop_token &stop) {
            enumeration.roots.removeIf([this](const FilePath &root) { return !isSameOrWithin(root, home.path()); });
            return walker.enumerate(enumeration, stop);
        });
        ON_CALL(files, allocatedSizes)
            .WillByDefault([this](const QList<FilePath> &paths, const std::stop_token &stop, WalkNotes *notes) {
                return walker.allocatedSizes(paths, stop, notes);
            });
        addEveryFinding(home);
        home.file("Sites/localhost/shop copy 2/x"); // Two copies are listed; one, if the other is broken.
        home.setModified("Sites/localhost/shop copy 2", {});
        home.file("work/one/package.json");
        home.file("work/one/node_modules/deep/er/x", 9000);
        home.file("work/one/build/y");
        if (GetParam() % 2 == 1) // Many calls are about its content.
            also = {home / "work"};
        std::vector<uint8_t> bytes(1500);
        std::ranges::generate(bytes, [this] { return static_cast<uint8_t>(random()); });
        Decisions decisions(bytes);
        for (int made = 0; made < 16 && decisions.areLeft(); ++made)
            makeSomething(home.path(), decisions, namesForAScan);
        for (const auto &[relative, _] : home.inventory()) {
            if (relative != ".")
                entries.push_back(home / FilePath::fromStdString(relative));
        }
    }

    ScanResult scanned()
    {
        WalkNotes notes;
        ScanHarvest harvest;
        for (const ScanStep &step : scanSteps)
            step.run({files, home.path(), {}, also, &notes, {}}, harvest);
        ScanResult result = summarized(harvest.disk, harvest.findings);
        prepareForecast(result, files, notes);
        return result;
    }

    Listed without(const FilePath &entry)
    {
        const Away away(entry, elsewhere / "away");
        return listedBy(scanned());
    }

    int anyError() { return errors[random() % errors.size()]; }

    /// If all calls about \a broken fail, the scan finds \a expected, the result without these entries.
    void expectAsWithout(const std::map<FilePath, int> &broken, const Listed &expected)
    {
        BrokenSystem system(home.path(), {.entries = broken});
        const ScanResult result = scanned();
        Listed listed = listedBy(result);
        std::erase_if(listed, [&broken](const auto &one) {
            const auto &[title, path] = one.first;
            return one.second == 0 && broken.contains(path) && isKnownByName(title, path);
        });
        EXPECT_EQ(listed, expected);
        expectTold(result, system);
    }

    /// Exactly the folders that could not be read are reported.
    static void expectTold(const ScanResult &result, const BrokenSystem &system)
    {
        std::set<FilePath> unread;
        for (const auto &[what, error] : system.refused()) {
            const bool isReading = what.second == SystemCall::open || what.second == SystemCall::list;
            if (isReading && !tellsThatNothingIsThere(error))
                unread.insert(what.first);
        }
        EXPECT_EQ(result.unread.count, static_cast<qsizetype>(unread.size()));
        for (const UnreadFolder &folder : result.unread.first)
            EXPECT_TRUE(unread.contains(folder.path)) << folder.path.constData();
    }

    /// Each finding is as with an entry or as without it.
    static void expectBetween(const Listed &listed, const Listed &with, const Listed &without)
    {
        for (const auto &[what, bytes] : listed) {
            const auto one = with.find(what);
            const auto other = without.find(what);
            ASSERT_TRUE(one != with.end() || other != without.end()) << what.second.constData();
            EXPECT_LE(bytes, std::max(one != with.end() ? one->second : 0, other != without.end() ? other->second : 0))
                << what.second.constData();
        }
        for (const auto &[what, bytes] : without) {
            if (const auto one = with.find(what); one != with.end() && std::min(bytes, one->second) > 0) {
                const auto found = listed.find(what);
                ASSERT_TRUE(found != listed.end()) << what.second.constData();
                EXPECT_GE(found->second, std::min(bytes, one->second)) << what.second.constData();
            }
        }
    }

    std::mt19937 random{GetParam()};
    TemporaryHome home{TemporaryHome::parentInMemory()};
    TemporaryHome elsewhere{TemporaryHome::parentInMemory()};
    NiceMock<FakeFileManager> files{home.path()};
    DirectoryWalker walker{1}; // One thread, so that calls have the same numbers each time.
    QList<FilePath> also;
    std::vector<FilePath> entries;
};

} // namespace

TEST_P(ScanAmidErrorsTest, FindsWhatItFindsWithoutAnEntryWhereEachCallAboutItFails)
{
    const Listed whole = listedBy(scanned());
    size_t next = GetParam();
    for (const FilePath &entry : entries) {
        const int error = errors[next++ % errors.size()];
        SCOPED_TRACE(entry.toStdString() + ": " + std::strerror(error));
        expectAsWithout({{entry, error}}, without(entry));
    }
    EXPECT_EQ(listedBy(scanned()), whole);
}

TEST_P(ScanAmidErrorsTest, FindsWhatItFindsWithoutAnyEntriesWhereEachCallAboutThemFails)
{
    for (int round = 0; round < 12; ++round) {
        std::map<FilePath, int> broken;
        for (const FilePath &entry : entries) {
            if (random() % 8 == 0)
                broken[entry] = anyError();
        }
        Listed expected;
        {
            std::vector<std::unique_ptr<Away>> away; // The innermost entries first, so that they come back last.
            for (auto entry = broken.rbegin(); entry != broken.rend(); ++entry)
                away.push_back(
                    std::make_unique<Away>(entry->first, elsewhere / FilePath::number(qsizetype(away.size()))));
            expected = listedBy(scanned());
            while (!away.empty())
                away.pop_back();
        }
        SCOPED_TRACE(round);
        expectAsWithout(broken, expected);
    }
}

TEST_P(ScanAmidErrorsTest, FindsEachAsWithAnEntryOrAsWithoutWhereOneKindOfCallAboutItFails)
{
    std::set<std::pair<FilePath, SystemCall>> asked;
    Listed whole;
    {
        const BrokenSystem system(home.path(), {});
        whole = listedBy(scanned());
        asked = system.asked();
    }
    FilePath entry;
    Listed rest;
    for (const auto &[path, kind] : asked) {
        if (path == home.path())
            continue;
        if (entry != path)
            rest = without(path);
        entry = path;
        const int error = anyError();
        SCOPED_TRACE(entry.toStdString() + ", kind " + std::to_string(static_cast<int>(kind)) + ": " +
                     std::strerror(error));
        BrokenSystem system(home.path(), {.entries = {{entry, error}}, .only = kind});
        const ScanResult result = scanned();
        expectBetween(listedBy(result), whole, rest);
        expectTold(result, system);
    }
}

TEST_P(ScanAmidErrorsTest, FindsEachAsWithAnEntryOrAsWithoutWhereASingleCallFails)
{
    const Listed whole = listedBy(scanned());
    std::map<FilePath, Listed> known;
    int calls = 1;
    for (int call = 0; call < calls; ++call) {
        Listed listed;
        FilePath about;
        {
            BrokenSystem system(home.path(), {.call = call, .errorOfCall = anyError()});
            listed = listedBy(scanned());
            calls = std::max(calls, system.calls());
            if (!system.refused().empty())
                about = system.refused().begin()->first.first;
        }
        SCOPED_TRACE("call " + std::to_string(call) + ", about " + about.toStdString());
        if (!known.contains(about))
            known[about] = about.isEmpty() || about == home.path() ? whole : without(about);
        expectBetween(listed, whole, known[about]);
    }
    EXPECT_GT(calls, 100);
}

TEST_P(ScanAmidErrorsTest, FindsNothingInAHomeThatIsBroken)
{
    for (const int error : errors) {
        BrokenSystem system(home.path(), {.entries = {{home.path(), error}}});
        const ScanResult result = scanned();
        EXPECT_TRUE(listedBy(result).empty());
        EXPECT_EQ(result.snapshot.totals, ScanTotals());
    }
}

TEST_P(ScanAmidErrorsTest, FindsTheSameWhereTheDiskDoesNotTellItsSize)
{
    const ScanResult whole = scanned();
    for (const int error : errors) {
        BrokenSystem system(home.path(), {.entries = {{home.path(), error}}, .only = SystemCall::capacity});
        const ScanResult result = scanned();
        EXPECT_EQ(listedBy(result), listedBy(whole));
        EXPECT_EQ(result.snapshot.totals.recoverableBytes, whole.snapshot.totals.recoverableBytes);
        EXPECT_EQ(result.snapshot.totals.volumeBytes, 0);
        EXPECT_EQ(result.snapshot.totals.recoverablePercent, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Trees, ScanAmidErrorsTest, testing::Values(1, 2));

} // namespace tidlo
