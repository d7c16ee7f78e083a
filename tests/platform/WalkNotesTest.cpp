#include "platform/WalkNotes.h"

#include "platform/Allocation.h"
#include "platform/LiveFileManager.h"
#include "support/InChild.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <cerrno>

#include <sys/stat.h>

namespace tidlo {

/// For messages of tests.
static void PrintTo(const UnreadFolder &folder, std::ostream *stream)
{
    *stream << folder.path.toStdString() << ": " << folder.reason.toStdString();
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The number of links of each noted file in \a item.
QList<quint32> linksIn(const WalkNotes &notes, const FilePath &item)
{
    QList<quint32> links;
    for (const LinkedFile &file : notes.linked().value(item))
        links.append(file.links);
    return links;
}

} // namespace

TEST(WalkNotes, TellTheFilesWithSeveralNamesOfEachMeasuredItem)
{
    TemporaryHome home;
    home.file("plain/file");
    const FilePath shared = home.file("one/deep/file");
    home.hardLink("one/again", shared);
    home.hardLink("elsewhere", shared);
    const FilePath alone = home.file("two");
    home.hardLink("other", alone);
    WalkNotes notes;
    DirectoryWalker().allocatedSizes({home / "plain", home / "one", alone}, {}, &notes);
    EXPECT_EQ(notes.linked().size(), 2);
    EXPECT_THAT(linksIn(notes, home / "one"), ElementsAre(3, 3));
    EXPECT_THAT(linksIn(notes, alone), ElementsAre(2));
    const LinkedFile file = notes.linked().value(alone).first();
    struct stat status;
    ASSERT_EQ(stat(alone.constData(), &status), 0);
    EXPECT_EQ(file, (LinkedFile{.device = quint64(status.st_dev), .inode = status.st_ino, .bytes = block, .links = 2}));
}

TEST(WalkNotes, AreTheSameForItemsThatAnEnumerationCollects)
{
    TemporaryHome home;
    home.hardLink("tree/folder/again", home.file("tree/folder/file"));
    home.hardLink("tree/linked", home.file("tree/file"));
    home.file("tree/skipped/a");
    WalkNotes notes;
    const auto visit = [](const EnumeratedEntry &entry) {
        return Visit{.action = entry.name() == "skipped" ? Visit::Action::skip : Visit::Action::collect};
    };
    DirectoryWalker().enumerate(
        {.roots = {home / "tree"}, .shown = DeepEnumeration::Shown::everything, .visit = visit, .notes = &notes}, {});
    EXPECT_EQ(notes.linked().size(), 3);
    EXPECT_THAT(linksIn(notes, home / "tree/folder"), ElementsAre(2, 2));
    EXPECT_THAT(linksIn(notes, home / "tree/file"), ElementsAre(2));
}

TEST(WalkNotes, AnItemThatIsMeasuredAgainIsToldOnce)
{
    TemporaryHome home;
    home.hardLink("a/two", home.file("a/one"));
    WalkNotes notes;
    for (int time = 0; time < 2; ++time)
        DirectoryWalker().allocatedSizes({home / "a"}, {}, &notes);
    EXPECT_THAT(linksIn(notes, home / "a"), ElementsAre(2, 2));
    notes.setLinked(home / "a", {});
    EXPECT_THAT(notes.linked(), IsEmpty());
}

TEST(WalkNotes, TellFoldersThatCannotBeReadOnceEachTheFirstWithTheReason)
{
    WalkNotes notes;
    for (const char *folder : {"/e", "/b", "/d", "/b", "/c"})
        notes.addUnread(folder, EACCES);
    notes.addUnread("/a", EIO);
    const UnreadFolders unread = notes.unread();
    EXPECT_EQ(unread.count, 5);
    EXPECT_THAT(unread.first,
                ElementsAre(UnreadFolder{"/a", qt_error_string(EIO)}, UnreadFolder{"/b", qt_error_string(EACCES)},
                            UnreadFolder{"/c", qt_error_string(EACCES)}));
}

TEST(WalkNotes, NothingIsToldOfWhatIsMissingOrNotToBeEntered)
{
    TemporaryHome home;
    home.link("link", home.folder("true"));
    home.file("file");
    WalkNotes notes;
    DirectoryWalker().allocatedSizes({home / "missing", home / "link", home / "file"}, {}, &notes);
    DirectoryWalker().enumerate({.roots = {home / "missing", home / "file"}, .visit = {}, .notes = &notes}, {});
    EXPECT_FALSE(LiveFileManager().contentsOfDirectory(home / "missing", &notes));
    EXPECT_EQ(notes.unread(), UnreadFolders());
}

TEST(WalkNotes, EveryKindOfWalkTellsWhatItCannotOpen)
{
    TemporaryHome home;
    for (const char *folder : {"listed", "measured/closed", "searched/closed"})
        chmod(home.folder(folder).constData(), 0);
    chmod(home.path().constData(), 0755);
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        WalkNotes notes;
        DirectoryWalker().allocatedSizes({home / "measured"}, {}, &notes);
        DirectoryWalker().enumerate(
            {.roots = {home / "searched"}, .visit = [](const EnumeratedEntry &) { return Visit(); }, .notes = &notes},
            {});
        EXPECT_FALSE(LiveFileManager().contentsOfDirectory(home / "listed", &notes));
        const UnreadFolders unread = notes.unread();
        EXPECT_EQ(unread.count, 3);
        const QString reason = qt_error_string(EACCES);
        EXPECT_THAT(unread.first,
                    ElementsAre(UnreadFolder{home / "listed", reason}, UnreadFolder{home / "measured/closed", reason},
                                UnreadFolder{home / "searched/closed", reason}));
        return !testing::Test::HasFailure();
    });
    EXPECT_TRUE(result.succeeded) << result.output;
    for (const char *folder : {"listed", "measured/closed", "searched/closed"})
        chmod((home / folder).constData(), 0700);
}

} // namespace tidlo
