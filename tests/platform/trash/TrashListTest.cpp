// What is listed of the Trashes, whoever wrote them.

#include "FastDisk.h"
#include "Scene.h"
#include "platform/Descriptor.h"
#include "platform/FileManager.h"
#include "platform/linux/TrashRecord.h"
#include "platform/linux/XdgTrash.h"
#include "support/OwnMounts.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace {

class TrashListing : public testing::Test
{
protected:
    /// Without the items on other disks of this machine.
    TrashContents list(std::stop_token stop = {}) const
    {
        TrashContents contents = XdgTrash(home.path(), home / ".local/share").list(std::move(stop));
        contents.items.removeIf([this](const ListedItem &each) { return !each.item.trash.startsWith(home.path()); });
        contents.unread.removeIf([this](const UnreadTrash &each) { return !each.path.startsWith(home.path()); });
        return contents;
    }

    QList<FilePath> origins() const
    {
        QList<FilePath> paths;
        for (const ListedItem &listed : list().items)
            paths.append(listed.item.origin);
        return paths;
    }

    /// Adds an item and its record to the Trash of the home folder.
    void trash(const FilePath &name, const QByteArray &record) const
    {
        home.file(ownTrash + "/files/" + name, 1);
        write(name + ".trashinfo", record);
    }

    void write(const FilePath &recordName, const QByteArray &text) const
    {
        const Descriptor file(open(home.file(ownTrash + "/info/" + recordName, 0).constData(), O_WRONLY | O_CLOEXEC));
        EXPECT_EQ(::write(file.get(), text.constData(), text.size()), text.size());
    }

    static QByteArray record(const FilePath &path, const QByteArray &date)
    {
        return "[Trash Info]\nPath=" + path + "\nDeletionDate=" + date + '\n';
    }

    const TemporaryHome home{fastDisk()};
    const FilePath ownTrash = ".local/share/Trash";
};

} // namespace

TEST_F(TrashListing, ListsOriginTimeAndSize)
{
    const XdgTrash trash(home.path(), home / ".local/share");
    trash.move(home.file("in/first", 5000), 1'700'000'000);
    home.file("in/folder/inner", 9000);
    trash.move(home / "in/folder", 1'700'000'001);

    qputenv("XDG_DATA_HOME", home / ".local/share");
    qputenv("HOME", home.path());
    const TrashContents contents = makeFileManager()->trashedItems();
    qunsetenv("XDG_DATA_HOME");

    const auto listed = [&](const char *name, std::time_t moved, qint64 bytes) {
        return ListedItem{
            .item = {.trash = home / ownTrash, .name = name, .origin = home / "in/" + name},
            .moved = fileTime(moved, 0),
            .bytes = bytes,
        };
    };
    QList<ListedItem> ours = contents.items;
    ours.removeIf([this](const ListedItem &each) { return !each.item.trash.startsWith(home.path()); });
    EXPECT_THAT(ours, ElementsAre(listed("folder", 1'700'000'001, 12'288), listed("first", 1'700'000'000, 8'192)));
}

TEST_F(TrashListing, OrdersByTimeThenByTheTimeOfTheRecordAndPutsItemsWithoutTimeLast)
{
    trash("b", record("/b", "2026-01-01T00:00:01"));
    trash("none", record("/none", "soon"));
    trash("c", record("/c", "2026-01-01T00:00:01"));
    trash("d", record("/d", "2026-01-01T00:00:01"));
    trash("a", record("/a", "2026-01-01T00:00:02"));
    home.setModified(ownTrash + "/info/c.trashinfo", FileTime(std::chrono::seconds(30)));
    home.setModified(ownTrash + "/info/b.trashinfo", FileTime(std::chrono::seconds(20)));
    home.setModified(ownTrash + "/info/d.trashinfo", FileTime(std::chrono::seconds(10)));

    EXPECT_THAT(origins(), ElementsAre("/a", "/c", "/b", "/d", "/none"));
    EXPECT_FALSE(list().items.last().moved);
}

TEST_F(TrashListing, CountsRecordsThatTellNothingAndPassesOverWhatIsNone)
{
    home.folder(ownTrash + "/files");
    const QByteArray good = record("/good", "2026-01-01T00:00:01");
    trash("good", good);
    int unknown = 0;
    for (const QByteArray path : {"a/b", "/a/../b", "/a%00b", "/a%zz", "", "/"})
        trash(FilePath::number(++unknown), record(path, "2026-01-01T00:00:01"));
    trash(FilePath::number(++unknown), "Path=/a");
    trash(FilePath::number(++unknown), good + QByteArray(longestTrashRecord, '#'));
    write("orphan.trashinfo", good);
    write(".trashinfo", good);
    write("no-record", good);
    home.file(ownTrash + "/files/no-record");
    home.file(ownTrash + "/files/without");
    for (const char *name : {"folder", "link", "fifo"})
        home.file(ownTrash + "/files/" + name);
    home.folder(ownTrash + "/info/folder.trashinfo");
    home.link(ownTrash + "/info/link.trashinfo", "good.trashinfo");
    ASSERT_EQ(mkfifo((home / ownTrash + "/info/fifo.trashinfo").constData(), 0600), 0);

    const TrashContents contents = list();

    EXPECT_THAT(origins(), ElementsAre("/good"));
    EXPECT_EQ(contents.unknown, unknown);
    EXPECT_THAT(contents.unread, IsEmpty());
}

TEST_F(TrashListing, DatesOfAnyKindDoNoHarm)
{
    for (const QByteArray &date :
         {QByteArray("9999-99-99T99:99:99"), QByteArray("-292278994-01-01T00:00:00"), QByteArray(50'000, '9'),
          QByteArray("2026-01-01"), QByteArray("2026-01-01T00:00:00+99:99"), QByteArray("\xff\xff")})
        trash(FilePath::number(qHash(date)), record("/x", date));

    EXPECT_THAT(origins(), SizeIs(6));
}

TEST_F(TrashListing, PathsThatFillTheMemoryAreNotAllKept)
{
    constexpr int records = 1'150; // With 64 KB each; 64 MiB are kept.
    const QByteArray text = "[Trash Info]\nPath=" + QByteArray("/" + FilePath(200, 'd')).repeated(300);
    home.folder(ownTrash + "/files");
    home.folder(ownTrash + "/info");
    for (int at = 0; at < records; ++at)
        trash(FilePath::number(at), text);

    const TrashContents contents = list();

    EXPECT_EQ(contents.items.size() + contents.unknown, records);
    EXPECT_GT(contents.unknown, 0);
    EXPECT_LE(contents.items.size() * contents.items.front().item.origin.size(), 64 << 20);
}

TEST_F(TrashListing, AHundredThousandRecordsAreRead)
{
    constexpr int records = 100'000;
    const Descriptor files(open(home.folder(ownTrash + "/files").constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const Descriptor info(open(home.folder(ownTrash + "/info").constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    for (int at = 0; at < records; ++at) {
        const FilePath name = FilePath::number(at);
        ASSERT_EQ(mkdirat(files.get(), name.constData(), 0700), 0);
        const Descriptor file(
            openat(info.get(), (name + ".trashinfo").constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
        const QByteArray text = record("/" + name, "2026-01-01T00:00:01");
        ASSERT_EQ(::write(file.get(), text.constData(), text.size()), text.size());
    }

    EXPECT_EQ(list().items.size(), records);

    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(list(stop.get_token()).items.size(), 0);
}

TEST_F(TrashListing, ReadingChangesNothing)
{
    XdgTrash(home.path(), home / ".local/share").move(home.file("item"), 0);
    const auto before = home.inventory();
    list();
    EXPECT_TRUE(home.inventory() == before);

    const TemporaryHome bare;
    XdgTrash(bare.path(), bare / ".local/share").list({});
    EXPECT_EQ(bare.inventory().size(), 1U) << "no Trash is made to be read";
}

TEST(TrashListingOnMounts, AllOfTheUsersAreListedAndEachOnce)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    const FilePath again = home.folder("again");
    const XdgTrash trash(home.path(), home / ".local/share");
    inOwnMounts([&] {
        mountMemory(stick);
        trash.move(home.file("in/own"), 0);
        trash.move(home.file("stick/in/first"), 0);
        chmod(home.folder("stick/.Trash").constData(), 01777);
        trash.move(home.file("stick/in/second"), 0);
        ASSERT_EQ(mount(stick.constData(), again.constData(), nullptr, MS_BIND, nullptr), 0);
        home.link("stick/.Trash-x", "in");

        std::set<FilePath> origins;
        for (const ListedItem &listed : trash.list({}).items) {
            const bool isOurs = listed.item.origin.startsWith(home.path());
            EXPECT_TRUE(!isOurs || origins.insert(listed.item.origin).second) << listed.item.origin.constData();
        }
        EXPECT_THAT(origins, UnorderedElementsAre(home / "in/own", stick + "/in/first", stick + "/in/second"));
    });
}

TEST(TrashListingOnMounts, ATrashThatCannotBeUsedIsTold)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        const FilePath own = ".Trash-" + FilePath::number(geteuid());
        home.file("stick/elsewhere/files/a");
        home.file("stick/elsewhere/info/a.trashinfo");
        home.link("stick/" + own, "elsewhere");

        QList<UnreadTrash> ours = XdgTrash(home.path(), home / ".local/share").list({}).unread;
        ours.removeIf([&](const UnreadTrash &unread) { return !unread.path.startsWith(home.path()); });

        EXPECT_THAT(ours, ElementsAre(UnreadTrash{
                              .path = stick + '/' + own,
                              .reason = QStringLiteral("The Trash there cannot be opened: Not a directory")}));
    });
}

TEST_F(TrashListing, ATrashWithoutItsFoldersIsEmpty)
{
    home.folder(ownTrash);
    EXPECT_THAT(list().unread, IsEmpty());
    home.folder(ownTrash + "/files");
    EXPECT_THAT(list().unread, IsEmpty());
}

TEST_F(TrashListing, TellsThatItsRecordsCannotBeListed)
{
    trash("one", record("/a", "2023-01-01T00:00:00"));
    SystemCalls calls;
    calls.openat = [real = calls.openat](int folder, const char *name, int flags, mode_t mode) {
        errno = EIO;
        return QByteArrayView(name) == "." ? -1 : real(folder, name, flags, mode);
    };
    const TrashContents contents = XdgTrash(home.path(), home / ".local/share", calls).list({});

    const UnreadTrash told{.path = home / ownTrash,
                           .reason = QStringLiteral("Its records cannot be listed: Input/output error")};
    EXPECT_TRUE(contents.unread.contains(told));
}

TEST_F(TrashListing, TellsThatItsItemsCannotBeLookedAt)
{
    trash("one", record("/a", "2023-01-01T00:00:00"));
    SystemCalls calls;
    calls.statx = [real = calls.statx](int folder, const char *name, int flags, unsigned wanted, struct statx *status) {
        errno = EACCES;
        return QByteArrayView(name) == "one" ? -1 : real(folder, name, flags, wanted, status);
    };
    const TrashContents contents = XdgTrash(home.path(), home / ".local/share", calls).list({});
    const auto isOurs = [this](const UnreadTrash &each) { return each.path == home / ownTrash; };
    EXPECT_TRUE(std::ranges::any_of(contents.unread, isOurs));
}

} // namespace tidlo
