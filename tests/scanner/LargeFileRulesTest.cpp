#include "fakes/FakeEntry.h"
#include "scanner/FindingRules.h"
#include "scanner/RuleTest.h"

namespace tidlo {

using testing::_;
using testing::AllOf;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr qint64 large = 104'857'600;

class LargeFileRules : public RuleTest
{
protected:
    /// Sparse: a long file that takes hardly any space on the disk.
    FilePath oldFile(const FilePath &relative, qint64 bytes = large, int days = 61) const
    {
        const FilePath path = home.sparseFile(relative, bytes);
        home.setModified(relative, daysAgo(days));
        return path;
    }
    CleanupCandidate found() const { return foundIn(home.path()); }
    CleanupCandidate foundIn(const FilePath &folder) const
    {
        const QList<CleanupCandidate> candidates = candidatesOf(oldLargeFilesCandidates({files, folder}, now));
        EXPECT_THAT(candidates, SizeIs(1));
        return candidates.value(0);
    }
    Visit::Action actionOn(const FakeEntry &entry)
    {
        DeepEnumeration asked;
        EXPECT_CALL(files, enumerate).WillOnce([&](const DeepEnumeration &enumeration, const std::stop_token &) {
            asked = enumeration;
            return QList<CollectedItem>();
        });
        oldLargeFilesCandidates({files, home.path()}, now);
        return asked.visit(entry).action;
    }
};

} // namespace

TEST_F(LargeFileRules, GiveOneCandidateAlsoWhenThereIsNoFolder)
{
    expectFixedFields(found(), {"Large & untouched files (>100MB, 60+ days old)",
                                "Files over 100MB sitting unused in Downloads, Movies, Documents, or Desktop for over "
                                "2 months.",
                                CleanupCategory::oldLargeFiles, CleanupRisk::rebuildable, true});
    EXPECT_THAT(found().paths, IsEmpty());
    EXPECT_EQ(found().bytes, 0);
}

TEST_F(LargeFileRules, SearchSixFoldersInTheirOrderAndAskForEveryEntry)
{
    const QList<FilePath> roots{home / "Downloads", home / "Desktop",  home / "Documents",
                                home / "Movies",    home / "Pictures", home / "Music"};
    EXPECT_CALL(files, enumerate(AllOf(Field(&DeepEnumeration::roots, roots),
                                       Field(&DeepEnumeration::shown, DeepEnumeration::Shown::everything)),
                                 _));
    found();
}

TEST_F(LargeFileRules, FindFilesInAllOfThemAndNowhereElse)
{
    QList<FilePath> expected;
    for (const char *folder : {"Downloads", "Desktop", "Documents", "Movies", "Pictures", "Music"})
        expected.append(oldFile(FilePath(folder) + "/deep/er/file"));
    oldFile("file");
    oldFile("Videos/file");
    oldFile("Sites/file");
    EXPECT_THAT(found().paths, ElementsAreArray(expected));
}

TEST_F(LargeFileRules, FindFilesOfAtLeast100MebibytesOlderThan60Days)
{
    const FilePath longEnough = oldFile("Music/a", 104'857'600, 61);
    oldFile("Music/b", 104'857'599, 61);
    oldFile("Music/c", 200'000'000, 59);
    oldFile("Music/d", 200'000'000, -1);
    EXPECT_THAT(found().paths, ElementsAre(longEnough));
}

TEST_F(LargeFileRules, CutOffAt5184000Seconds)
{
    const FileTime cutOff = now - std::chrono::seconds(5'184'000);
    const FilePath older = oldFile("Music/a");
    home.setModified("Music/a", cutOff - std::chrono::nanoseconds(1));
    oldFile("Music/b");
    home.setModified("Music/b", cutOff);
    EXPECT_THAT(found().paths, ElementsAre(older));
}

TEST_F(LargeFileRules, CountAllocatedBytesWhereTheLengthDecides)
{
    const FilePath sparse = oldFile("Movies/sparse", 5'000'000'000);
    EXPECT_THAT(found().paths, ElementsAre(sparse));
    EXPECT_EQ(found().bytes, onDisk(sparse));
    EXPECT_LT(found().bytes, 1'000'000);
}

TEST_F(LargeFileRules, SumWhatTheFilesTakeOnTheDisk)
{
    const FilePath a = home.file("Movies/a", 70'000);
    const FilePath b = home.file("Pictures/b", 5'000);
    ASSERT_EQ(truncate(a.constData(), large), 0);
    ASSERT_EQ(truncate(b.constData(), large), 0);
    home.setModified("Movies/a", daysAgo(61));
    home.setModified("Pictures/b", daysAgo(61));
    EXPECT_EQ(found().bytes, onDisk(a) + onDisk(b));
    EXPECT_GE(found().bytes, 75'000);
}

TEST_F(LargeFileRules, FindNothingBeneathNodeModules)
{
    oldFile("Documents/site/node_modules/pkg/file");
    oldFile("Documents/site/node_modules/file");
    oldFile("Downloads/node_modules/file");
    const FilePath similar = oldFile("Documents/site/my_node_modules/file");
    EXPECT_THAT(found().paths, ElementsAre(similar));
}

TEST_F(LargeFileRules, FindAFileThatIsItselfNamedAsAnExcludedFolder)
{
    const FilePath file = oldFile("Documents/node_modules");
    EXPECT_THAT(found().paths, ElementsAre(file));
}

TEST_F(LargeFileRules, FindNothingWhereTheHomeLiesBeneathAnExcludedFolder)
{
    for (const char *folder : {"node_modules/u", ".git/u", "node_modules", "x/node_modules/y/z"}) {
        oldFile(FilePath(folder) + "/Movies/file");
        EXPECT_THAT(foundIn(home / folder).paths, IsEmpty()) << folder;
    }
}

TEST_F(LargeFileRules, FindFilesWhereTheHomesPathMerelyResemblesAnExcludedOne)
{
    for (const char *folder : {"my_node_modules/u", "x.git/u", "u.app"}) {
        const FilePath file = oldFile(FilePath(folder) + "/Movies/file");
        EXPECT_THAT(foundIn(home / folder).paths, ElementsAre(file)) << folder;
    }
}

TEST_F(LargeFileRules, FindFilesBehindALinkThatIsTheFolderItself)
{
    oldFile("node_modules/elsewhere/file"); // Its path through the link contains no excluded name.
    home.link("Movies", "node_modules/elsewhere");
    EXPECT_THAT(found().paths, ElementsAre(home / "Movies/file"));
}

TEST_F(LargeFileRules, LeaveApplicationsAndPackagesAlone)
{
    oldFile("Downloads/Tool.app/Contents/file");
    oldFile("Downloads/single.app");
    oldFile("Pictures/Library.photoslibrary/file");
    const FilePath upperCase = oldFile("Downloads/single.APP");
    EXPECT_THAT(found().paths, ElementsAre(upperCase));
}

TEST_F(LargeFileRules, LeaveHiddenEntriesAlone)
{
    oldFile("Documents/.git/objects/pack/file");
    oldFile("Documents/.hidden");
    EXPECT_THAT(found().paths, IsEmpty());
}

TEST_F(LargeFileRules, LeaveLinksAlone)
{
    oldFile("elsewhere/file");
    home.link("Movies/file", home / "elsewhere/file");
    home.link("Movies/folder", home / "elsewhere");
    home.link("Movies/loop", home / "Movies");
    EXPECT_THAT(found().paths, IsEmpty());
}

TEST_F(LargeFileRules, JudgeWhatNoRealWalkShowsByTheSameTests)
{
    const FileAttributes qualifying{.kind = FileKind::regular, .size = large, .modified = daysAgo(61)};
    EXPECT_EQ(actionOn(FakeEntry("file", qualifying)), Visit::Action::collect);
    EXPECT_EQ(actionOn(FakeEntry(".git", qualifying)), Visit::Action::collect);
    EXPECT_EQ(actionOn(FakeEntry("x.app", qualifying)), Visit::Action::skip);
    EXPECT_EQ(actionOn(FakeEntry("file", {.kind = FileKind::regular, .size = large})), Visit::Action::skip);
    EXPECT_EQ(actionOn(FakeEntry("file", {.kind = FileKind::regular, .modified = daysAgo(61)})), Visit::Action::skip);
    EXPECT_EQ(actionOn(FakeEntry("file", {})), Visit::Action::skip);
    EXPECT_EQ(actionOn(FakeEntry("folder")), Visit::Action::walkOn);
    EXPECT_EQ(actionOn(FakeEntry(".git")), Visit::Action::skip);
    EXPECT_EQ(actionOn(FakeEntry("node_modules")), Visit::Action::skip);
    EXPECT_EQ(actionOn(FakeEntry("x.app")), Visit::Action::skip);
    const FileAttributes longFolder{.kind = FileKind::directory, .size = large, .modified = daysAgo(61)};
    EXPECT_EQ(actionOn(FakeEntry("folder", longFolder)), Visit::Action::walkOn);
}

TEST_F(LargeFileRules, ListFilesDepthFirstInByteOrder)
{
    const QList<FilePath> expected{oldFile("Movies/B"), oldFile("Movies/a/z"), oldFile("Movies/a b"),
                                   oldFile("Movies/b")};
    EXPECT_THAT(found().paths, ElementsAreArray(expected));
}

TEST_F(LargeFileRules, KeepAnyNameByteForByte)
{
    QList<FilePath> expected;
    for (const FilePath &name : awkwardNames())
        expected.append(oldFile("Documents/" + name + "/" + name));
    EXPECT_THAT(found().paths, testing::UnorderedElementsAreArray(expected));
}

TEST_F(LargeFileRules, PassOverFoldersThatAreFilesOrCannotBeRead)
{
    oldFile("Downloads");
    home.link("Desktop", "Desktop");
    oldFile("Documents/secret/file");
    const FilePath open = oldFile("Documents/open");
    const FilePath music = oldFile("Music/file");
    withoutAccessTo(home / "Documents/secret", [&] { EXPECT_THAT(found().paths, ElementsAre(open, music)); });
    withoutAccessTo(home / "Documents", [&] { EXPECT_THAT(found().paths, ElementsAre(music)); });
}

TEST_F(LargeFileRules, EndEarlyWhenAskedToStop)
{
    oldFile("Movies/file");
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THAT(
        oldLargeFilesCandidates({files, home.path(), {}, {}, nullptr, stop.get_token()}, now).at(0).candidate.paths,
        IsEmpty());
}

} // namespace tidlo
