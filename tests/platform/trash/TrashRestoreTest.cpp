// What comes back from the Trash, and what is refused. Nothing is ever replaced.

#include "FastDisk.h"
#include "InstrumentedCalls.h"
#include "Scene.h"
#include "TrashDecoder.h"
#include "platform/Descriptor.h"
#include "platform/linux/TrashRecord.h"
#include "platform/linux/XdgTrash.h"
#include "support/DeepTree.h"
#include "support/OwnMounts.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <iostream>
#include <random>

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

namespace tidlo {

using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Kind = TrashOutcome::Kind;

/// A home folder, and its Trash, which moves and restores.
class TrashRestoring : public testing::Test
{
protected:
    TrashedItem moved(const FilePath &path) const { return trash.move(path, 0).trashed.value(); }

    TrashOutcome back(const TrashedItem &item) const
    {
        return trash.restore({item}, [] { return false; }).value(0);
    }

    void expectRefused(const TrashedItem &item, const char *reason) const
    {
        const auto before = home.inventory();
        EXPECT_EQ(back(item), TrashOutcome::refused(QString::fromLatin1(reason)));
        EXPECT_TRUE(home.inventory() == before) << "nothing changes";
    }

    /// Writes the record of a file \a name into \a folder as another program might.
    TrashedItem foreign(const FilePath &folder, const FilePath &name, const FilePath &recorded, const FilePath &origin)
    {
        home.file(folder + "/files/" + name, 3);
        const FilePath record = home.file(folder + "/info/" + name + ".trashinfo", 0);
        const Descriptor file(open(record.constData(), O_WRONLY | O_CLOEXEC));
        const QByteArray text = trashRecord(recorded, 0);
        EXPECT_EQ(write(file.get(), text.constData(), text.size()), text.size());
        return {.trash = home / folder, .name = name, .origin = origin};
    }

    bool exists(const FilePath &path) const
    {
        struct stat status;
        return lstat(path.constData(), &status) == 0;
    }

    const TemporaryHome home{fastDisk()};
    const XdgTrash trash{home.path(), home / ".local/share"};
    const FilePath ownTrash = ".local/share/Trash";
};

} // namespace

TEST_F(TrashRestoring, AnItemComesBackAsItWasAndItsRecordGoes)
{
    home.file("in/folder/inner", 5);
    home.link("in/link", "nowhere");
    home.file("in/file", 3);
    const auto before = home.inventory();
    for (const char *item : {"in/folder", "in/link", "in/file"})
        EXPECT_EQ(back(moved(home / item)).kind, Kind::moved) << item;
    const auto after = home.inventory();
    for (const char *item : {"in/folder", "in/folder/inner", "in/link", "in/file"}) {
        EXPECT_EQ(after.at(item).inode, before.at(item).inode) << item;
        EXPECT_EQ(after.at(item).modified, before.at(item).modified) << item;
    }
    EXPECT_FALSE(exists(home / ownTrash + "/info/file.trashinfo"));
    EXPECT_THAT(decodeTrash(home / ownTrash).items, IsEmpty());
}

TEST_F(TrashRestoring, NamesOfAnyBytesComeBack)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> byte(1, 255);
    QList<TrashedItem> items;
    for (const FilePath name : {"new\nline", "100%", "%41", "-rf", "\xff\xfe", " ", "[Trash Info]", "Path=/x", "..."})
        items.append(moved(home.file("in/" + name, 1)));
    for (int length = 1; length <= 255; ++length) {
        FilePath name(length, 'n');
        std::ranges::generate(name, [&] { return static_cast<char>(byte(random)); });
        name.replace('/', '_');
        if (name != "." && !exists(home / "in/" + name))
            items.append(moved(home.file("in/" + name, 1)));
    }

    for (const TrashOutcome &outcome : trash.restore(items, [] { return false; }))
        EXPECT_EQ(outcome.kind, Kind::moved) << outcome.reason.toStdString();

    for (const TrashedItem &item : items)
        EXPECT_TRUE(exists(item.origin)) << item.origin.toPercentEncoding().toStdString();
    EXPECT_THAT(decodeTrash(home / ownTrash).items, IsEmpty());
}

TEST_F(TrashRestoring, FoldersThatAreMissingAreMadeForTheUserAlone)
{
    const TrashedItem item = moved(home.file("a/b/c/item"));
    ASSERT_EQ(rmdir((home / "a/b/c").constData()), 0);
    ASSERT_EQ(rmdir((home / "a/b").constData()), 0);
    const mode_t kept = home.inventory().at("a").mode;

    EXPECT_EQ(back(item).kind, Kind::moved);

    const auto after = home.inventory();
    EXPECT_EQ(after.at("a").mode, kept);
    EXPECT_EQ(after.at("a/b").mode & 07777U, 0700U);
    EXPECT_EQ(after.at("a/b/c").mode & 07777U, 0700U);
    EXPECT_TRUE(after.contains("a/b/c/item"));
}

TEST_F(TrashRestoring, AFolderThatAnotherProgramMakesAtTheSameTimeIsUsed)
{
    const TrashedItem item = foreign(ownTrash, "item", home / "in/item", home / "in/item");
    SystemCalls calls;
    calls.mkdirat = [real = calls.mkdirat](int folder, const char *name, mode_t mode) {
        real(folder, name, mode);
        return real(folder, name, mode);
    };
    const XdgTrash slower(home.path(), home / ".local/share", calls);
    EXPECT_EQ(slower.restore({item}, [] { return false; }).value(0).kind, Kind::moved);
    EXPECT_TRUE(exists(home / "in/item"));
}

TEST_F(TrashRestoring, APathLongerThanTheSystemTakesComesBack)
{
    const FilePath name(200, 'd');
    constexpr int levels = 40;
    makeChain(home.folder("top"), name.constData(), levels, [](int folder, int level) {
        if (level == levels)
            makeFile(folder, "item", 3);
    });
    const FilePath path = home / "top" + ('/' + name).repeated(levels) + "/item";
    ASSERT_GT(path.size(), PATH_MAX);
    const TrashedItem item = moved(path);

    EXPECT_EQ(back(item).kind, Kind::moved);

    EXPECT_EQ(trash.move(path, 0).kind, Kind::moved) << "it is there again";
}

TEST_F(TrashRestoring, NothingAtThePlaceIsReplaced)
{
    const std::array<std::function<void()>, 3> inTheWay{[this] { home.file("in/item", 1); },
                                                        [this] { home.folder("in/item"); },
                                                        [this] { home.link("in/item", "nowhere"); }};
    for (const auto &make : inTheWay) {
        for (const bool isFolder : {false, true}) {
            const TrashedItem item = moved(isFolder ? home.folder("in/item") : home.file("in/item"));
            make();
            expectRefused(item, "Something else is at its place by now.");
            ASSERT_EQ(remove((home / "in/item").constData()), 0);
        }
    }
}

TEST_F(TrashRestoring, NoLinkAndNoFileOnTheWayIsFollowed)
{
    home.folder("outside/folder");
    const TrashedItem item = moved(home.file("in/folder/item"));
    ASSERT_EQ(rmdir((home / "in/folder").constData()), 0);
    for (const FilePath &target : {home / "outside/folder", FilePath("../outside/folder"), FilePath("nowhere")}) {
        home.link("in/folder", target);
        expectRefused(item, "A link or a file is on the way to its place.");
        ASSERT_EQ(unlink((home / "in/folder").constData()), 0);
    }
    home.file("in/folder");
    expectRefused(item, "A link or a file is on the way to its place.");
}

TEST_F(TrashRestoring, LinksThatLeadToTheHomeAreFollowed)
{
    home.folder("disk/u");
    home.link("way", "disk");
    const FilePath given = home / "way/u";
    const XdgTrash own(given, given + "/.local/share");
    const auto never = [] { return false; };
    const TrashedItem ours = own.move(home.file("disk/u/in/item"), 0).trashed.value();
    const TrashedItem theirs =
        foreign("disk/u/.local/share/Trash", "other", given + "/in/other", home / "disk/u/in/other");

    for (const TrashOutcome &outcome : own.restore({ours, theirs}, never))
        EXPECT_EQ(outcome.kind, Kind::moved) << outcome.reason.toStdString();

    EXPECT_TRUE(exists(home / "disk/u/in/item"));
    EXPECT_TRUE(exists(home / "disk/u/in/other"));
}

TEST_F(TrashRestoring, AnItemOfThisRunIsDistinguishedFromOneThatTookItsName)
{
    const TrashedItem item = moved(home.file("in/item"));
    ASSERT_EQ(rename((home / ownTrash + "/files/item").constData(), (home / "aside").constData()), 0);
    home.file(ownTrash + "/files/item", 1);

    expectRefused(item, "Something else now has its name in the Trash.");

    TrashedItem unknown = item;
    unknown.identity.reset();
    EXPECT_EQ(back(unknown).kind, Kind::moved) << "where it is not known, the record is believed";
}

TEST_F(TrashRestoring, WhatIsNoLongerInTheTrashIsGone)
{
    const TrashedItem item = moved(home.file("in/item"));
    ASSERT_EQ(back(item).kind, Kind::moved);

    EXPECT_EQ(back(item), TrashOutcome::gone());
    for (const char *name : {"", ".", "..", "../info", "a/b"})
        EXPECT_EQ(back({.trash = item.trash, .name = name, .origin = item.origin}), TrashOutcome::gone()) << name;
    EXPECT_TRUE(exists(item.origin));
}

TEST_F(TrashRestoring, ARecordOfAnotherPlaceThanTheRequestedOneRefuses)
{
    const TrashedItem item = foreign(ownTrash, "item", home / "in/item", home / "in/other");
    expectRefused(item, "Its record now names another place.");
    expectRefused(foreign(ownTrash, "up", home / "in/../up", home / "up"), "There is no record of where it was.");
    expectRefused(foreign(ownTrash, "relative", "in/relative", home / "in/relative"),
                  "Its record names a place that is not on the volume of its Trash.");
    home.file(ownTrash + "/files/bare");
    expectRefused({.trash = home / ownTrash, .name = "bare", .origin = home / "bare"},
                  "There is no record of where it was.");
    expectRefused({.trash = home / "elsewhere", .name = "item", .origin = home / "in/item"},
                  "Its Trash cannot be found.");
}

TEST_F(TrashRestoring, NothingIsPutIntoATrash)
{
    for (const FilePath inside : {".local/share/Trash/files/x", ".Trash-1000/files/x", ".Trash/x", "a/.Trash-1/info/x"})
        expectRefused(foreign(ownTrash, "item", home / inside, home / inside), "Its place is in a Trash.");
    home.folder("data/Trash");
    const XdgTrash other(home.path(), home / "data");
    const TrashedItem item = foreign("data/Trash", "item", home / "data/Trash/info/x", home / "data/Trash/info/x");
    EXPECT_EQ(other.restore({item}, [] { return false; }).value(0).reason, QStringLiteral("Its place is in a Trash."));
}

TEST_F(TrashRestoring, AStopIsAskedForBeforeEachItem)
{
    QList<TrashedItem> items;
    for (const char *name : {"a", "b", "c"})
        items.append(moved(home.file(name)));
    int asked = 0;

    EXPECT_EQ(trash.restore(items, [&] { return ++asked == 3; }).size(), 2);

    EXPECT_TRUE(exists(home / "b"));
    EXPECT_FALSE(exists(home / "c"));
}

TEST_F(TrashRestoring, ASystemThatOpensStepByStepDoesTheSame)
{
    SystemCalls calls;
    calls.openat2 = [](int, const char *, open_how *, size_t) {
        errno = ENOSYS;
        return -1;
    };
    const XdgTrash stepwise(home.path(), home / ".local/share", calls);
    const TrashedItem item = moved(home.file("in/folder/item"));
    const TrashedItem linked = moved(home.file("in/link/item"));
    ASSERT_EQ(rmdir((home / "in/link").constData()), 0);
    home.link("in/link", "folder");

    const QList<TrashOutcome> outcomes = stepwise.restore({item, linked}, [] { return false; });

    EXPECT_EQ(outcomes.value(0).kind, Kind::moved);
    EXPECT_EQ(outcomes.value(1).kind, Kind::refused);
}

TEST_F(TrashRestoring, ARecordThatIsNoLongerItsOwnStays)
{
    const TrashedItem item = moved(home.file("in/item"));
    const FilePath record = home / ownTrash + "/info/item.trashinfo";
    const SystemCalls calls = instrumented([&](const Call &call, const auto &real) {
        if (call.name == "renameat2") { // The Trash was emptied, and another program took the name.
            EXPECT_EQ(rename(record.constData(), (record + '~').constData()), 0);
            home.file(ownTrash + "/info/item.trashinfo", 7);
        }
        return real();
    });

    const TrashOutcome outcome =
        XdgTrash(home.path(), home / ".local/share", calls).restore({item}, [] { return false; }).value(0);

    EXPECT_EQ(outcome.kind, Kind::moved);
    EXPECT_TRUE(exists(record));
}

TEST(TrashRestoringOnMounts, AnItemComesBackFromTheTrashOfItsMount)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    const XdgTrash trash(home.path(), home / ".local/share");
    inOwnMounts([&] {
        mountMemory(stick);
        const auto expectBack = [&] {
            const FilePath path = home.file("stick/in/an item");
            const TrashedItem item = trash.move(path, 0).trashed.value();
            ASSERT_TRUE(item.trash.startsWith(stick));
            EXPECT_EQ(trash.restore({item}, [] { return false; }).value(0).kind, Kind::moved);
            EXPECT_EQ(access(path.constData(), F_OK), 0);
            EXPECT_THAT(decodeTrash(item.trash, stick).items, IsEmpty());
        };
        expectBack();
        chmod(home.folder("stick/.Trash").constData(), 01777);
        expectBack();
    });
}

TEST(TrashRestoringOnMounts, ARecordOfAMountMayNotLeadElsewhere)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    const XdgTrash trash(home.path(), home / ".local/share");
    inOwnMounts([&] {
        mountMemory(stick);
        const TrashedItem item = trash.move(home.file("stick/item"), 0).trashed.value();
        const FilePath record = item.trash + "/info/item.trashinfo";
        for (const FilePath &path : {home / "item", stick + "/item", FilePath("../item"), FilePath("a/../../item")}) {
            const Descriptor file(open(record.constData(), O_WRONLY | O_TRUNC | O_CLOEXEC));
            const QByteArray text = trashRecord(path, 0);
            ASSERT_EQ(write(file.get(), text.constData(), text.size()), text.size());
            const auto before = home.inventory();
            for (const FilePath &origin : {path, home / "item", stick + "/item", stick + '/' + path}) {
                const TrashedItem asked{.trash = item.trash, .name = "item", .origin = origin};
                EXPECT_EQ(trash.restore({asked}, [] { return false; }).value(0).kind, Kind::refused)
                    << path.constData();
            }
            EXPECT_TRUE(home.inventory() == before);
        }
    });
}

TEST(TrashRestoringOnMounts, AnotherVolumeOnTheWayIsNotEntered)
{
    const TemporaryHome home;
    const FilePath folder = home.folder("in/folder");
    const XdgTrash trash(home.path(), home / ".local/share");
    inOwnMounts([&] {
        const TrashedItem item = trash.move(home.file("in/folder/deep/item"), 0).trashed.value();
        ASSERT_EQ(rmdir((folder + "/deep").constData()), 0);
        mountMemory(folder);
        const auto before = home.inventory();

        EXPECT_EQ(trash.restore({item}, [] { return false; }).value(0),
                  TrashOutcome::refused(QStringLiteral("Another volume is mounted on the way to its place.")));

        EXPECT_TRUE(home.inventory() == before) << "no folder is made there";

        home.folder("in/folder/deep");
        EXPECT_EQ(trash.restore({item}, [] { return false; }).value(0),
                  TrashOutcome::refused(QStringLiteral("Another volume is mounted on the way to its place.")));
    });
}

TEST(TrashRestoringOnMounts, WhatTheTrashOfTheHomeHoldsComesBackToItsOwnVolumeAlone)
{
    const TemporaryHome home;
    const FilePath data = home.folder("data");
    const XdgTrash trash(home.path(), data + "/own");
    inOwnMounts([&] {
        mountMemory(data);
        TrashedItem item = trash.move(home.file("data/in/item"), 0).trashed.value();
        EXPECT_EQ(trash.restore({item}, [] { return false; }).value(0).kind, Kind::moved);

        item = trash.move(home.file("data/in/item"), 0).trashed.value();
        const Descriptor file(open((item.trash + "/info/item.trashinfo").constData(), O_WRONLY | O_TRUNC | O_CLOEXEC));
        const QByteArray text = trashRecord(home / "item", 0);
        ASSERT_EQ(write(file.get(), text.constData(), text.size()), text.size());
        item.origin = home / "item";
        EXPECT_EQ(trash.restore({item}, [] { return false; }).value(0),
                  TrashOutcome::refused(QStringLiteral("Its place is on another volume than its Trash.")));
    });
}

namespace {

/// Puts one item back, with a swap in that \a way before call number \a at. Returns how many calls there were.
int restoreWithSwap(int way, int at)
{
    const TemporaryHome home(fastDisk());
    home.file("outside/inner", 5);
    home.file("outside/item", 5);
    home.file("in/folder/item", 3);
    const XdgTrash trash(home.path(), home / ".local/share");
    const TrashedItem item = trash.move(home / "in/folder/item", 0).trashed.value();
    const FilePath trashed = home / ".local/share/Trash/files/item";
    const auto before = home.inventory();
    const auto aside = [&](const FilePath &from) {
        rename(from.constData(), (home / "aside").constData());
        return from.mid(home.path().size() + 1);
    };
    const auto swap = [&] {
        switch (way) {
        case 0: // The folder that it goes back to becomes a link to another folder.
            home.link(aside(home / "in/folder"), home / "outside");
            break;
        case 1: // A parent of that folder becomes a link.
            home.link(aside(home / "in"), "outside");
            break;
        case 2: // The item in the Trash becomes another file.
            home.file(aside(trashed), 1);
            break;
        case 3: // Its former place is taken.
            if (access((home / "in/folder/item").constData(), F_OK) != 0)
                home.folder("in/folder/item");
            break;
        default: // The item in the Trash disappears.
            aside(trashed);
        }
    };
    int calls = 0;
    const SystemCalls swapping = instrumented([&](const Call &call, const auto &real) {
        calls = call.number;
        if (call.number == at)
            swap();
        return real();
    });

    const TrashOutcome outcome =
        XdgTrash(home.path(), home / ".local/share", swapping).restore({item}, [] { return false; }).value(0);

    const auto after = home.inventory();
    for (const char *victim : {"outside/inner", "outside/item"})
        EXPECT_EQ(after.at(victim), before.at(victim)) << victim;
    EXPECT_EQ(std::ranges::count_if(after, [](const auto &entry) { return entry.first.starts_with("outside/"); }), 2);
    const ino_t inode = before.at(".local/share/Trash/files/item").inode;
    EXPECT_EQ(std::ranges::count_if(after, [&](const auto &entry) { return entry.second.inode == inode; }), 1)
        << "it is somewhere, once";
    const bool isInTrash =
        after.contains(".local/share/Trash/files/item") && after.at(".local/share/Trash/files/item").inode == inode;
    EXPECT_FALSE(isInTrash && !after.contains(".local/share/Trash/info/item.trashinfo")) << "with its record";
    EXPECT_FALSE(isInTrash && outcome.kind == Kind::moved);
    return calls;
}

} // namespace

TEST(TrashRestoringRaces, WhatIsSwappedBeforeAnyCallLeadsNowhereElse)
{
    const int calls = restoreWithSwap(0, 0);
    for (int at = 1; at <= calls; ++at) {
        for (int way = 0; way < 5; ++way) {
            SCOPED_TRACE(testing::Message() << "way " << way << " before call " << at);
            restoreWithSwap(way, at);
        }
    }
    std::cout << 5 * calls << " swaps, at each of " << calls << " calls\n";
}

TEST(TrashRestoringRaces, WhatTookTheNameAtTheLastMomentGoesBackIntoTheTrash)
{
    for (const bool isPlaceTaken : {false, true}) {
        const TemporaryHome home(fastDisk());
        const XdgTrash trash(home.path(), home / ".local/share");
        const TrashedItem item = trash.move(home.file("in/item", 3), 0).trashed.value();
        const FilePath trashed = home / ".local/share/Trash/files/item";
        ino_t other = 0;
        int renames = 0;
        const SystemCalls swapping = instrumented([&](const Call &call, const auto &real) {
            if (call.name == "renameat2" && ++renames == 1) {
                EXPECT_EQ(rename(trashed.constData(), (home / "aside").constData()), 0);
                home.file(".local/share/Trash/files/item", 1);
                other = home.inventory().at(".local/share/Trash/files/item").inode;
            }
            if (call.name == "renameat2" && renames == 2 && isPlaceTaken)
                home.file(".local/share/Trash/files/item", 2);
            return real();
        });

        const TrashOutcome outcome =
            XdgTrash(home.path(), home / ".local/share", swapping).restore({item}, [] { return false; }).value(0);

        EXPECT_EQ(outcome.kind, isPlaceTaken ? Kind::anotherMoved : Kind::failed);
        const auto after = home.inventory();
        EXPECT_EQ(after.at(isPlaceTaken ? "in/item" : ".local/share/Trash/files/item").inode, other);
        EXPECT_TRUE(after.contains(".local/share/Trash/info/item.trashinfo"));
        EXPECT_TRUE(after.contains("aside"));
    }
}

} // namespace tidlo
