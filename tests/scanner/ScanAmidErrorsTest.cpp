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

// What a scan of a broken disk finds is what it finds without the broken entries. Where that is not quite so:
//
// - All calls about an entry fail. Its folder still tells its name, and most file systems what kind it is. So a folder
//   whose name suffices is listed, with nothing counted of it. All else is as if it were not there.
// - One kind of call fails, all others work; or a single call does. Each rule asks anew, so one may see what another
//   does not. Each finding is either as without the entry or as with it: what is listed with it and without is listed,
//   what is listed neither with it nor without is not, and what is counted lies between the two.

constexpr std::array errors{EIO,    EACCES,       EPERM,  ENOENT, ENOTDIR,  ELOOP, ENOMEM,    EMFILE,
                            ENFILE, ENAMETOOLONG, ESTALE, ENODEV, ENOTCONN, EXDEV, EOVERFLOW, EINTR};

/// Whether a finding lists folders of which nothing but the name is asked, and there is such a folder.
bool isKnownByName(const QString &title, const FilePath &path)
{
    constexpr std::array kinds{FindingKind::projectFolders, FindingKind::composerFolders, FindingKind::buildOutputs};
    struct stat status;
    return std::ranges::any_of(kinds, [&title](FindingKind kind) { return title == rowOf(kind).title; }) &&
           lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// With these, no folder is there that could be read.
bool tellsThatNothingIsThere(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ELOOP || error == EXDEV;
}

/// The bytes of each path that a finding lists, by the finding.
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

/// As long as it lives, an entry is elsewhere; its folder shows nothing of that.
class Away final
{
public:
    /// \a other is where it is meanwhile.
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
        home.file("Sites/localhost/shop copy 2/x"); // So that two copies are listed, and one is if the other is broken.
        home.setModified("Sites/localhost/shop copy 2", {});
        home.file("work/one/package.json");
        home.file("work/one/node_modules/deep/er/x", 9000);
        home.file("work/one/build/y");
        if (GetParam() % 2 == 1) // Much is asked about what one finds in it.
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

    /// Where all calls about \a broken fail, what is found is what \a expected is without them.
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

    /// Each folder that could not be read is told, and no other.
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

    /// Each finding is as it is with an entry or as it is without.
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
    DirectoryWalker walker{1}; // Calls have the same numbers each time, and no time goes into the start of threads.
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
            std::vector<std::unique_ptr<Away>> away; // Those in others first, so that they come back last.
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
