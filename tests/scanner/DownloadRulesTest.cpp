#include "scanner/FindingRules.h"
#include "scanner/RuleTest.h"

namespace tidlo {

using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Return;
using testing::SizeIs;

namespace {

class DownloadRules : public RuleTest
{
protected:
    FilePath download(const FilePath &name, int days = 46) const
    {
        const FilePath path = home.file("Downloads/" + name);
        home.setModified("Downloads/" + name, daysAgo(days));
        return path;
    }
    QList<CleanupCandidate> candidates() const { return candidatesOf(downloadCandidates({files, home.path()}, now)); }
    CleanupCandidate found() const
    {
        const QList<CleanupCandidate> all = candidates();
        EXPECT_THAT(all, SizeIs(1));
        return all.value(0);
    }
};

} // namespace

TEST_F(DownloadRules, GiveOneCandidateWhereTheFolderCanBeListed)
{
    home.folder("Downloads");
    expectFixedFields(found(), {"Downloads / old installers and archives",
                                "DMG, ZIP, APK, and video files older than 45 days. Review before removing.",
                                CleanupCategory::downloads, CleanupRisk::review, true});
    EXPECT_THAT(found().paths, IsEmpty());
    EXPECT_EQ(found().bytes, 0);
}

TEST_F(DownloadRules, GiveNoCandidateWhereTheFolderCannotBeListed)
{
    EXPECT_THAT(candidates(), IsEmpty());
    home.file("Downloads");
    EXPECT_THAT(candidates(), IsEmpty());
    EXPECT_CALL(files, contentsOfDirectory(home / "Downloads", _)).WillOnce(Return(std::nullopt));
    EXPECT_THAT(candidates(), IsEmpty());
}

TEST_F(DownloadRules, GiveNoCandidateWhereTheFolderMayNotBeRead)
{
    download("a.zip");
    EXPECT_THAT(candidates(), SizeIs(1));
    withoutAccessTo(home / "Downloads", [this] { EXPECT_THAT(candidates(), IsEmpty()); });
}

TEST_F(DownloadRules, AcceptTenExtensionsWithoutCase)
{
    const QList<FilePath> names{"a.dmg", "b.zip", "c.tar", "d.gz",   "e.tgz", "f.apk",
                                "g.avi", "h.mov", "i.mp4", "j.webm", "k.DMG", "l.WebM"};
    QList<FilePath> expected;
    qint64 bytes = 0;
    for (const FilePath &name : names) {
        expected.append(download(name));
        bytes += onDisk(expected.last());
    }
    EXPECT_THAT(found().paths, testing::ElementsAreArray(expected));
    EXPECT_EQ(found().bytes, bytes);
}

TEST_F(DownloadRules, AcceptNoOtherName)
{
    for (const char *name : {"a.pdf", "zip", ".zip", ".hidden.zip", "a.zip.part", "a.zip ", "a.", "a.7z", "azip"})
        download(name);
    EXPECT_THAT(found().paths, IsEmpty());
}

TEST_F(DownloadRules, JudgeByTheLastExtension)
{
    download("x.zip.txt");
    const FilePath archive = download("archive.tar.gz");
    EXPECT_THAT(found().paths, ElementsAre(archive));
}

TEST_F(DownloadRules, FindWhatIsOlderThan45DaysAlone)
{
    const FilePath old = download("setup.DMG", 46);
    download("new.DMG", 44);
    download("today.zip", 0);
    download("tomorrow.zip", -1);
    EXPECT_THAT(found().paths, ElementsAre(old));
}

TEST_F(DownloadRules, CutOffAt3888000Seconds)
{
    const FileTime cutOff = now - std::chrono::seconds(3'888'000);
    const FilePath older = download("a.zip");
    home.setModified("Downloads/a.zip", cutOff - std::chrono::nanoseconds(1));
    download("b.zip");
    home.setModified("Downloads/b.zip", cutOff);
    EXPECT_THAT(found().paths, ElementsAre(older));
}

TEST_F(DownloadRules, FindRegularFilesAlone)
{
    home.file("Downloads/folder.zip/inside.zip");
    home.setModified("Downloads/folder.zip/inside.zip", daysAgo(100));
    home.setModified("Downloads/folder.zip", daysAgo(100));
    home.folder("Downloads/Tool.app");
    home.setModified("Downloads/Tool.app", daysAgo(100));
    home.link("Downloads/link.zip", download("real.zip"));
    home.setModified("Downloads/link.zip", daysAgo(100));
    ASSERT_EQ(mkfifo((home / "Downloads/fifo.zip").constData(), 0600), 0);
    home.setModified("Downloads/fifo.zip", daysAgo(100));
    EXPECT_THAT(found().paths, ElementsAre(home / "Downloads/real.zip"));
}

TEST_F(DownloadRules, NeverFindAFileWithoutDateOrAttributes)
{
    const QList<DirectoryEntry> entries{
        {.path = home / "Downloads/a.zip", .attributes = {.kind = FileKind::regular, .size = 1}},
        {.path = home / "Downloads/b.zip", .attributes = {.kind = FileKind::unknown, .modified = daysAgo(100)}},
        {.path = home / "Downloads/c.zip", .attributes = {.kind = FileKind::regular, .modified = daysAgo(100)}},
    };
    ON_CALL(files, contentsOfDirectory).WillByDefault(Return(entries));
    EXPECT_THAT(found().paths, ElementsAre(home / "Downloads/c.zip"));
}

TEST_F(DownloadRules, KeepTheListingsOrderAndAnyNameByteForByte)
{
    QList<FilePath> expected;
    for (const FilePath &name : awkwardNames())
        expected.append(download(name + ".zip"));
    std::ranges::sort(expected);
    EXPECT_THAT(found().paths, testing::ElementsAreArray(expected));
}

TEST_F(DownloadRules, FollowALinkThatIsTheFolderItself)
{
    home.file("elsewhere/a.zip");
    home.setModified("elsewhere/a.zip", daysAgo(46));
    home.link("Downloads", "elsewhere");
    EXPECT_THAT(found().paths, ElementsAre(home / "Downloads/a.zip"));
}

TEST_F(DownloadRules, CountNothingOfAFileThatVanishesWhileItIsRead)
{
    const FilePath gone = download("a.zip");
    const FilePath stays = download("b.zip");
    ON_CALL(files, allocatedSizes)
        .WillByDefault([&](const QList<FilePath> &paths, const std::stop_token &stop, WalkNotes *notes) {
            std::remove(gone.constData());
            return files.live().allocatedSizes(paths, stop, notes);
        });
    const CleanupCandidate candidate = found();
    EXPECT_THAT(candidate.paths, ElementsAre(gone, stays));
    EXPECT_EQ(candidate.bytes, onDisk(stays));
}

} // namespace tidlo
