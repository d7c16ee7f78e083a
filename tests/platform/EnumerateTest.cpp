#include "platform/Allocation.h"
#include "platform/DirectoryWalker.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <mutex>
#include <set>

#include <sys/stat.h>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

Visit collectTargets(const EnumeratedEntry &entry)
{
    return entry.name() == "target" ? Visit{Visit::Action::collect, 7} : Visit{};
}

QList<FilePath> pathsOf(const QList<CollectedItem> &items)
{
    QList<FilePath> paths;
    for (const CollectedItem &item : items)
        paths.append(item.path);
    return paths;
}

QList<FilePath> targetsIn(const QList<FilePath> &roots)
{
    return pathsOf(DirectoryWalker().enumerate({.roots = roots, .visit = collectTargets}, {}));
}

/// The names that a visitor gets.
std::multiset<std::string> shownIn(const FilePath &root, DeepEnumeration::Shown shown)
{
    std::mutex mutex;
    std::multiset<std::string> names;
    const auto visit = [&](const EnumeratedEntry &entry) {
        const std::lock_guard lock(mutex);
        names.insert(entry.name().toByteArray().toStdString());
        return Visit{};
    };
    DirectoryWalker().enumerate({.roots = {root}, .shown = shown, .visit = visit}, {});
    return names;
}

} // namespace

TEST(Enumerate, ItemsComeDepthFirstEachFolderBeforeItsContentsInByteOrder)
{
    const TemporaryHome home;
    // A dash comes before a slash in bytes, but a folder's contents come before its next sibling.
    for (const char *path :
         {"b/target", "a-b/target", "a/target", "a/z/target", "A/target", "a/target2", "\xff/target"})
        home.folder(path);
    EXPECT_THAT(targetsIn({home.path()}), ElementsAre(home / "A/target", home / "a/target", home / "a/z/target",
                                                      home / "a-b/target", home / "b/target", home / "\xff/target"));
}

TEST(Enumerate, RootsAreWalkedInTheirOrder)
{
    const TemporaryHome home;
    home.folder("b/target");
    home.folder("a/target");
    EXPECT_THAT(targetsIn({home / "b", home / "missing", home / "a"}),
                ElementsAre(home / "b/target", home / "a/target"));
}

TEST(Enumerate, AnItemIsMeasuredWithTheGroupItWasGiven)
{
    const TemporaryHome home;
    home.file("a/target/x/file", 2 * block);
    home.file("a/target/.hidden", block);
    const QList<CollectedItem> items =
        DirectoryWalker().enumerate({.roots = {home.path()}, .visit = collectTargets}, {});
    ASSERT_EQ(items.size(), 1);
    EXPECT_EQ(items.at(0).group, 7);
    EXPECT_EQ(items.at(0).allocatedSize, 3 * block);
}

TEST(Enumerate, NothingIsLookedForInsideACollectedFolder)
{
    const TemporaryHome home;
    home.folder("target/a/target");
    EXPECT_THAT(targetsIn({home.path()}), ElementsAre(home / "target"));
}

TEST(Enumerate, ASkippedFolderIsNotEntered)
{
    const TemporaryHome home;
    home.folder("skip/target");
    home.folder("other/target");
    const auto visit = [](const EnumeratedEntry &entry) {
        return entry.name() == "skip" ? Visit{Visit::Action::skip} : collectTargets(entry);
    };
    EXPECT_THAT(pathsOf(DirectoryWalker().enumerate({.roots = {home.path()}, .visit = visit}, {})),
                ElementsAre(home / "other/target"));
}

TEST(Enumerate, HiddenEntriesAreNeitherShownNorEntered)
{
    const TemporaryHome home;
    home.folder(".hidden/target");
    home.file(".file");
    EXPECT_THAT(shownIn(home.path(), DeepEnumeration::Shown::everything), IsEmpty());
}

TEST(Enumerate, PackagesAreShownAndNotEntered)
{
    const TemporaryHome home;
    home.folder("Some.app/target");
    EXPECT_THAT(shownIn(home.path(), DeepEnumeration::Shown::folders), ElementsAre("Some.app"));
}

TEST(Enumerate, LinksAreNotEnteredAndAreNoFolders)
{
    const TemporaryHome home;
    home.folder("real/target");
    home.link("root/link", home / "real");
    home.link("root/target", home / "real");
    EXPECT_THAT(targetsIn({home / "root"}), IsEmpty());
    EXPECT_THAT(shownIn(home / "root", DeepEnumeration::Shown::folders), IsEmpty());
    EXPECT_THAT(shownIn(home / "root", DeepEnumeration::Shown::everything), ElementsAre("link", "target"));
}

TEST(Enumerate, ARootMayBeReachedThroughALink)
{
    const TemporaryHome home;
    home.folder("real/target");
    const FilePath link = home.link("link", home / "real");
    EXPECT_THAT(targetsIn({link}), ElementsAre(link + "/target"));
}

TEST(Enumerate, ARootThatIsNoFolderHoldsNothing)
{
    const TemporaryHome home;
    EXPECT_THAT(targetsIn({home.file("file"), home / "missing", home.link("dangling", "nowhere")}), IsEmpty());
}

TEST(Enumerate, FilesAreShownOnlyWhenAskedForAndThenWithTheirAttributes)
{
    const TemporaryHome home;
    home.file("folder/file", block + 1);
    home.sparseFile("folder/sparse", 1'000'000);
    const FileTime time = FileTime(std::chrono::seconds(1'600'000'000)) + std::chrono::nanoseconds(123'456'789);
    home.setModified("folder/sparse", time);
    EXPECT_THAT(shownIn(home.path(), DeepEnumeration::Shown::folders), ElementsAre("folder"));
    EXPECT_THAT(shownIn(home.path(), DeepEnumeration::Shown::everything),
                UnorderedElementsAre("folder", "file", "sparse"));

    const auto visit = [&](const EnumeratedEntry &entry) {
        const FileAttributes &attributes = entry.attributes();
        const bool wanted = attributes.kind == FileKind::regular && attributes.size == 1'000'000 &&
                            attributes.allocatedSize == 0 && attributes.modified == time;
        return wanted ? Visit{Visit::Action::collect} : Visit{};
    };
    const QList<CollectedItem> items = DirectoryWalker().enumerate(
        {.roots = {home.path()}, .shown = DeepEnumeration::Shown::everything, .visit = visit}, {});
    EXPECT_THAT(pathsOf(items), ElementsAre(home / "folder/sparse"));
}

TEST(Enumerate, ACollectedFileIsMeasuredByItsAllocation)
{
    const TemporaryHome home;
    home.file("target", block + 1);
    const QList<CollectedItem> items = DirectoryWalker().enumerate(
        {.roots = {home.path()}, .shown = DeepEnumeration::Shown::everything, .visit = collectTargets}, {});
    ASSERT_EQ(items.size(), 1);
    EXPECT_EQ(items.at(0).allocatedSize, 2 * block);
}

TEST(Enumerate, AVisitorCanAskForSiblingsThroughLinksToo)
{
    const TemporaryHome home;
    home.folder("file/target");
    home.file("file/marker", 0);
    home.folder("link/target");
    home.link("link/marker", home / "file/marker");
    home.folder("dangling/target");
    home.link("dangling/marker", "nowhere");
    home.folder("none/target");
    home.folder("inside/target/marker");
    const auto visit = [](const EnumeratedEntry &entry) {
        return entry.name() == "target" && !entry.siblingExists("marker") ? Visit{} : collectTargets(entry);
    };
    EXPECT_THAT(pathsOf(DirectoryWalker().enumerate({.roots = {home.path()}, .visit = visit}, {})),
                ElementsAre(home / "file/target", home / "link/target"));
}

TEST(Enumerate, NamesMayHoldAnyBytes)
{
    const TemporaryHome home;
    const QByteArrayList names{"\x01", "\n", "%41", QByteArray(255, 'n'), "\xc3\xa9", "\xff"};
    QList<FilePath> expected;
    for (const QByteArray &name : names)
        expected.append(home.folder(name + "/target"));
    EXPECT_EQ(targetsIn({home.path()}), expected);
}

TEST(Enumerate, AStopThatWasRequestedEndsTheWalk)
{
    const TemporaryHome home;
    home.folder("target");
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THAT(DirectoryWalker().enumerate({.roots = {home.path()}, .visit = collectTargets}, stop.get_token()),
                IsEmpty());
}

TEST(Enumerate, AStopInTheMiddleEndsTheWalkWithWhatWasFound)
{
    const TemporaryHome home(TemporaryHome::parentInMemory());
    for (int folder = 0; folder < 2'000; ++folder)
        home.folder(QByteArray::number(folder) + "/a");
    for (int turn = 0; turn < 100; ++turn) { // The stop comes while several workers share the listing.
        std::stop_source stop;
        std::atomic<int> shown = 0;
        const auto visit = [&](const EnumeratedEntry &) {
            if (++shown >= 10)
                stop.request_stop();
            return Visit{};
        };
        DirectoryWalker().enumerate({.roots = {home.path()}, .visit = visit}, stop.get_token());
        ASSERT_LT(shown, 100); // Each worker may be in the middle of one entry.
    }
}

} // namespace tidlo
