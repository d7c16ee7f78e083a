// Walks on a system that lacks threads, memory or descriptors, that interrupts its calls, or that reports less than
// others do.

#include "BentCalls.h"
#include "platform/Descriptor.h"
#include "platform/DirectoryWalker.h"
#include "platform/LiveFileManager.h"
#include "platform/TreeWalk.h"
#include "support/DeepTree.h"
#include "support/InChild.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cerrno>
#include <new>

#include <fcntl.h>
#include <sys/stat.h>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Call = Bends::Call;

constexpr qint64 block = 4096;

class WalkFaults : public testing::Test
{
protected:
    WalkFaults()
    {
        for (int number = 0; number < 40; ++number) {
            const FilePath folder = "tree/" + FilePath::number(number);
            home.file(folder + "/target/inner/file", block);
            home.file(folder + "/other/deeper/file", block);
            home.file(folder + "/large", block);
        }
        home.link("tree/link", "1");
        EXPECT_EQ(mkfifo((home / "tree/pipe").constData(), 0600), 0);
        home.file("tree/.hidden/file", block);
    }

    /// What the walk collects and measures: folders named "target" beside "other", and files named "large".
    std::vector<std::string> found(int workers = 8) const
    {
        const auto visit = [](const EnumeratedEntry &entry) {
            const bool isMeant = (entry.name() == "target" && entry.siblingExists("other")) || entry.name() == "large";
            return isMeant ? Visit{.action = Visit::Action::collect} : Visit{};
        };
        std::vector<std::string> texts;
        const DeepEnumeration wanted{
            .roots = {home / "tree"}, .shown = DeepEnumeration::Shown::everything, .visit = visit};
        for (const CollectedItem &item : DirectoryWalker(workers).enumerate(wanted, {}))
            texts.push_back((item.path + ' ' + FilePath::number(item.allocatedSize)).toStdString());
        return texts;
    }

    qint64 size(int workers = 8) const { return DirectoryWalker(workers).allocatedSizes({home / "tree"}, {}).value(0); }

    static constexpr qint64 wholeSize = (40 * 3 + 1) * block;

    const Straightener straightener;
    TemporaryHome home{TemporaryHome::parentInMemory()};
};

} // namespace

TEST_F(WalkFaults, AWalkGoesOnWithTheThreadsThatItGets)
{
    const std::vector<std::string> expected = found();
    ASSERT_EQ(expected.size(), 80);
    for (const int threads : {0, 1, 2, 5}) {
        bends.threads = threads;
        EXPECT_EQ(found(), expected) << threads;
        bends.threads = threads;
        EXPECT_EQ(size(), wholeSize) << threads;
    }
}

TEST_F(WalkFaults, AListingThatGetsNoMemoryCountsAsUnreadableAndNothingEnds)
{
    home.file("small/file", block);
    for (const char *name : {"one", "two", "three", "four"})
        home.file(FilePath("small/") + name + "/inner/file", block);
    constexpr qint64 smallSize = 5 * block;
    for (const int workers : {1, 8}) {
        for (const bool staysFull : {false, true}) {
            bool isUnharmed = false;
            for (int allocations = 0; !isUnharmed; ++allocations) {
                SCOPED_TRACE(allocations);
                qint64 measured = 0;
                bends.staysFull = staysFull;
                bends.allocations = allocations;
                try {
                    measured = DirectoryWalker(workers).allocatedSizes({home / "small"}, {}).value(0);
                } catch (const std::bad_alloc &) { // Before and after the walk itself there is no fallback.
                }
                isUnharmed = bends.allocations > 0;
                bends.straighten();
                ASSERT_LE(measured, smallSize);
                ASSERT_TRUE(!isUnharmed || measured == smallSize);
            }
        }
    }
}

TEST_F(WalkFaults, ATrashThatCannotBeListedWholeIsToldAsUnread)
{
    home.file(".local/share/Trash/files/one", block);
    home.file(".local/share/Trash/info/one.trashinfo", 1);
    const QByteArray former = qgetenv("HOME");
    qunsetenv("XDG_DATA_HOME");
    qputenv("HOME", home.path());
    const LiveFileManager files;
    qputenv("HOME", former);
    const auto isTold = [&](const TrashContents &contents) {
        const auto isOurs = [&](const UnreadTrash &unread) { return unread.path.startsWith(home.path()); };
        return std::ranges::any_of(contents.unread, isOurs);
    };
    ASSERT_EQ(files.trashedItems({}).unknown, 1);

    for (int allowed = 0, isHit = true; isHit; ++allowed) {
        bends.bendEvery({Call::getdents}, EIO);
        bends.allowed = allowed;
        const TrashContents contents = files.trashedItems({});
        isHit = bends.allowed < 0;
        bends.straighten();
        EXPECT_TRUE(contents.unknown == 1 || isTold(contents)) << allowed;
    }
    for (int allowed = 0, isHit = true; isHit; ++allowed) {
        bends.staysFull = true;
        bends.allocations = allowed;
        const TrashContents contents = files.trashedItems({});
        isHit = bends.allocations < 0;
        bends.straighten();
        EXPECT_TRUE(contents.unknown == 1 || isTold(contents)) << allowed;
    }
}

TEST_F(WalkFaults, WhatWasMetBeforeMemoryRanOutCountsAndSoDoesAllElsewhere)
{
    home.folder("tree/7/poison");
    const auto visit = [](const EnumeratedEntry &entry) -> Visit {
        if (entry.name() == "poison")
            throw std::bad_alloc();
        return {.action = entry.name() == "inner" ? Visit::Action::collect : Visit::Action::walkOn};
    };
    for (const int workers : {1, 8}) {
        const auto items = DirectoryWalker(workers).enumerate({.roots = {home / "tree"}, .visit = visit}, {});
        EXPECT_GE(items.size(), 39);
        EXPECT_LE(items.size(), 40);
    }
}

TEST_F(WalkFaults, AListingThatIsSharedGoesOnWhereOneWorkerGotNoMemory)
{
    const FilePath wide = home.folder("wide");
    const Descriptor folder(open(wide.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int number = 0; number < 10'000; ++number) {
        const FilePath name = FilePath(number % 2'500 == 700 ? "poison" : "") + FilePath::number(number);
        makeFolder(folder.get(), name.constData());
    }
    const auto visit = [](const EnumeratedEntry &entry) -> Visit {
        if (entry.name().startsWith("poison"))
            throw std::bad_alloc();
        return {.action = Visit::Action::collect};
    };
    for (const int workers : {1, 8}) {
        const auto items = DirectoryWalker(workers).enumerate({.roots = {wide}, .visit = visit}, {});
        EXPECT_GT(items.size(), 4'000); // Each batch holds about a thousand entries, and four of them are cut short.
        EXPECT_LT(items.size(), 9'997);
    }
}

TEST_F(WalkFaults, FewDescriptorsAllowFewWorkers)
{
    for (const auto &[limit, helpers] : {std::pair{64, 7}, {40, 4}}) {
        const ChildResult result = inChild([&, limit = limit, helpers = helpers] {
            bends.threads = 100;
            const qint64 measured = limitDescriptors(limit) ? size() : 0;
            return measured == wholeSize && bends.threads == 100 - helpers;
        });
        EXPECT_TRUE(result.succeeded) << limit << ' ' << result.output;
    }
}

TEST_F(WalkFaults, AnInterruptedCallIsMadeAgain)
{
    const std::vector<std::string> expected = found();
    const FilePath far = home / ("tree" + FilePath("/.").repeated(3'000) + "/1/large");
    for (const Call call :
         {Call::openat, Call::openat2, Call::getdents, Call::statx, Call::fstat, Call::faccessat, Call::statvfs}) {
        bends.bendEvery({call}, EINTR);
        const auto things = found();
        const qint64 measured = size();
        const LiveFileManager files;
        const bool exists = files.fileExists(far);
        const auto attributes = files.attributesOfItem(far);
        const auto contents = files.contentsOfDirectory(home / "tree");
        const auto capacity = files.volumeCapacity(home.path());
        bends.straighten();
        EXPECT_EQ(things, expected) << static_cast<int>(call);
        EXPECT_EQ(measured, wholeSize) << static_cast<int>(call);
        EXPECT_TRUE(exists) << static_cast<int>(call);
        EXPECT_TRUE(attributes) << static_cast<int>(call);
        EXPECT_EQ(contents.value_or(QList<DirectoryEntry>()).size(), 42) << static_cast<int>(call);
        EXPECT_TRUE(capacity) << static_cast<int>(call);
    }
}

TEST_F(WalkFaults, DescriptorsThatRunShortAreFreedAndTheOpeningTriedAgain)
{
    const std::vector<std::string> expected = found(1);
    for (const int error : {EMFILE, ENFILE}) {
        bends.period = 4; // Closing and reopening takes more than one call.
        bends.bendEvery({Call::openat2}, error);
        EXPECT_EQ(found(1), expected);
        EXPECT_EQ(size(1), wholeSize);
        EXPECT_EQ(size(8), wholeSize);
    }
}

TEST_F(WalkFaults, EntriesOfUnknownKindAreLookedUp)
{
    const std::vector<std::string> expected = found();
    bends.hidesKinds = true;

    EXPECT_EQ(found(), expected);
    EXPECT_EQ(size(), wholeSize);
    const auto isLink = [](const EnumeratedEntry &entry) {
        const bool isMeant = entry.attributes().kind == FileKind::symbolicLink;
        return Visit{.action = isMeant ? Visit::Action::collect : Visit::Action::walkOn};
    };
    const DeepEnumeration everything{
        .roots = {home / "tree"}, .shown = DeepEnumeration::Shown::everything, .visit = isLink};
    EXPECT_EQ(DirectoryWalker().enumerate(everything, {}).size(), 1);
    const auto isNamed = [](const EnumeratedEntry &entry) {
        const bool isMeant = entry.name() == "inner" || entry.name() == "link" || entry.name() == "large";
        return Visit{.action = isMeant ? Visit::Action::collect : Visit::Action::walkOn};
    };
    const DeepEnumeration folders{.roots = {home / "tree"}, .visit = isNamed};
    EXPECT_EQ(DirectoryWalker().enumerate(folders, {}).size(), 40) << "links and files are no folders";
}

TEST_F(WalkFaults, AStopLeavesTheRestOfAHugeListingUnread)
{
    const FilePath wide = home.folder("wide");
    const Descriptor folder(open(wide.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int number = 0; number < 20'000; ++number)
        makeFile(folder.get(), FilePath::number(number).constData());
    for (const int openFolders : {0, 16}) { // The listing is not shared, or it is.
        std::stop_source stop;
        const auto visit = [&](const EnumeratedEntry &) {
            stop.request_stop();
            return Visit{};
        };
        bends.batchesRead = 0;

        TreeWalk({.workers = 1, .openFolders = openFolders}, stop.get_token(), nullptr)
            .enumerate({.roots = {wide}, .shown = DeepEnumeration::Shown::everything, .visit = visit});

        EXPECT_EQ(bends.batchesRead, 1) << openFolders;
    }
}

TEST_F(WalkFaults, AListingThatFailsHalfWayIsNone)
{
    const FilePath wide = home.folder("wide");
    const Descriptor folder(open(wide.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int number = 0; number < 5'000; ++number)
        makeFile(folder.get(), FilePath::number(number).constData());
    const LiveFileManager files;
    for (const int batches : {0, 1, 2}) {
        bends.batches = batches;
        EXPECT_FALSE(files.contentsOfDirectory(wide)) << batches;
    }
    bends.straighten();
    bends.allocations = 0;
    const auto listed = files.contentsOfDirectory(wide);
    bends.straighten();
    EXPECT_FALSE(listed);
    EXPECT_EQ(files.contentsOfDirectory(wide)->size(), 5'000);
}

TEST_F(WalkFaults, WhatIsFreeForRootAloneIsNotAvailable)
{
    bends.hidesRoom = true;
    const LiveFileManager files;

    EXPECT_EQ(files.volumeCapacity(home.path())->available, 1'000 * 4'096);
    EXPECT_EQ(files.fileSystemAttributes(home.path())->available, 1'000 * 4'096);
}

} // namespace tidlo
