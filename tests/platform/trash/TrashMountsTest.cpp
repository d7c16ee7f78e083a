// Which Trash an item goes to where several file systems are mounted. Each test has its own mounts.

#include "InstrumentedCalls.h"
#include "Probe.h"
#include "TrashDecoder.h"
#include "Witness.h"
#include "platform/linux/XdgTrash.h"
#include "support/OwnMounts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include <sys/mount.h>
#include <unistd.h>

namespace tidlo {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

void mountFolder(const FilePath &folder, const FilePath &place)
{
    ASSERT_EQ(mount(folder.constData(), place.constData(), nullptr, MS_BIND, nullptr), 0) << strerror(errno);
}

FilePath ownTrash()
{
    return ".Trash-" + FilePath::number(geteuid());
}

std::string content(const FilePath &path)
{
    std::string text(4096, '\0');
    FILE *file = std::fopen(path.constData(), "r");
    text.resize(file == nullptr ? 0 : std::fread(text.data(), 1, text.size(), file));
    if (file != nullptr)
        std::fclose(file);
    return text;
}

} // namespace

TEST(TrashOnMounts, AnItemGoesToTheTrashOfItsOwnMount)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        home.file("stick/in/an item");
        home.file("stick/other");
        const Witness witness(home, {"stick/in/an item"}, "stick/" + ownTrash().toStdString());

        EXPECT_THAT(probe({.paths = {stick + "/in/an item"}, .home = home.path()}).lines, ElementsAre("moved"));

        EXPECT_THAT(witness.complaints(), IsEmpty());
        const FilePath trash = stick + '/' + ownTrash();
        EXPECT_THAT(content(trash + "/info/an item.trashinfo"), StartsWith("[Trash Info]\nPath=in/an%20item\n"));
        EXPECT_THAT(decodeTrash(trash, stick).items,
                    ElementsAre(Field(&DecodedItem::originalPath, stick + "/in/an item")));
        const auto after = home.inventory();
        for (const char *part : {"", "/files", "/info"})
            EXPECT_EQ(after.at("stick/" + ownTrash().toStdString() + part).mode & 07777U, 0700U) << part;
        EXPECT_FALSE(after.contains(".local"));
    });
}

TEST(TrashOnMounts, TheOutcomeTellsWhichTrashItWas)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    const XdgTrash trash(home.path(), home / ".local/share");
    inOwnMounts([&] {
        mountMemory(stick);
        const auto trashOf = [&](const FilePath &item) { return trash.move(item, 0).trashed.value().trash; };
        EXPECT_EQ(trashOf(home.file("item")), home / ".local/share/Trash");
        EXPECT_EQ(trashOf(home.file("stick/item")), stick + '/' + ownTrash());
        chmod(home.folder("stick/.Trash").constData(), 01777);
        EXPECT_EQ(trashOf(home.file("stick/item")), stick + "/.Trash/" + FilePath::number(geteuid()));
    });
}

TEST(TrashOnMounts, TheTrashOfTheHomeIsForItsMountAlone)
{
    const TemporaryHome home;
    const FilePath films = home.folder("films");
    inOwnMounts([&] {
        // One file system and one device number, but rename() does not work from one mount to the other.
        mountFolder(home.folder("disk/films"), films);
        home.file("films/item");
        const Witness witness(home, {"films/item", "disk/films/item"}, "films/" + ownTrash().toStdString());

        EXPECT_THAT(probe({.paths = {films + "/item"}, .home = home.path()}).lines, ElementsAre("moved"));

        EXPECT_THAT(decodeTrash(films + '/' + ownTrash(), films).items,
                    ElementsAre(Field(&DecodedItem::originalPath, films + "/item")));
        EXPECT_FALSE(home.inventory().contains(".local"));
        EXPECT_THAT(probe({.paths = {home.file("disk/films/other")}, .home = home.path()}).lines, ElementsAre("moved"));
        EXPECT_THAT(decodeTrash(home / ".local/share/Trash").items,
                    ElementsAre(Field(&DecodedItem::originalPath, home / "disk/films/other")));
    });
}

TEST(TrashOnMounts, TheTrashOfTheHomeIsOnTheMountOfItsData)
{
    const TemporaryHome home;
    const FilePath data = home.folder("data");
    inOwnMounts([&] {
        mountMemory(data);

        EXPECT_THAT(probe({.paths = {home.file("data/in/item")}, .home = home.path(), .dataHome = data + "/own"}).lines,
                    ElementsAre("moved"));

        EXPECT_THAT(decodeTrash(data + "/own/Trash").items,
                    ElementsAre(Field(&DecodedItem::originalPath, data + "/in/item")));
    });
}

TEST(TrashOnMounts, AFolderThatAnAdministratorMadeForAllIsUsed)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        chmod(home.folder("stick/.Trash").constData(), 01777);

        EXPECT_THAT(probe({.paths = {home.file("stick/item")}, .home = home.path()}).lines, ElementsAre("moved"));

        const FilePath trash = stick + "/.Trash/" + FilePath::number(geteuid());
        EXPECT_THAT(decodeTrash(trash, stick).items, ElementsAre(Field(&DecodedItem::originalPath, stick + "/item")));
        EXPECT_FALSE(home.inventory().contains("stick/" + ownTrash().toStdString()));
    });
}

TEST(TrashOnMounts, AFolderForAllThatIsNotOneIsNotUsed)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    const std::vector<std::function<void()>> wrongs{
        [&] { chmod(home.folder("stick/.Trash").constData(), 0777); }, // Any user could take the items away.
        [&] {
            chmod(home.folder("stick/real").constData(), 01777);
            home.link("stick/.Trash", "real");
        },
        [&] { home.file("stick/.Trash"); },
        [&] {
            chmod(home.folder("stick/.Trash").constData(), 01777);
            home.link("stick/.Trash/" + FilePath::number(geteuid()), home.folder("elsewhere"));
        },
    };
    for (const auto &makeWrong : wrongs) {
        inOwnMounts([&] {
            mountMemory(stick);
            makeWrong();

            EXPECT_THAT(probe({.paths = {home.file("stick/item")}, .home = home.path()}).lines, ElementsAre("moved"));

            EXPECT_THAT(decodeTrash(stick + '/' + ownTrash(), stick).items, SizeIs(1));
        });
    }
}

TEST(TrashOnMounts, ALinkedTrashIsRefused)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        home.folder("stick/elsewhere/files");
        home.folder("stick/elsewhere/info");
        home.link("stick/" + ownTrash(), "elsewhere");
        const FilePath item = home.file("stick/item");
        const Witness witness(home);

        EXPECT_THAT(probe({.paths = {item}, .home = home.path()}).lines,
                    ElementsAre("refused: The Trash there is a link or a file, not a folder."));
        EXPECT_THAT(witness.complaints(), IsEmpty());
    });
}

TEST(TrashOnMounts, AForeignTrashIsRefused)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "Only root can give a folder away, so nothing was proved about foreign ones.";
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        ASSERT_EQ(chown(home.folder("stick/" + ownTrash()).constData(), 12345, 12345), 0);
        const FilePath item = home.file("stick/item");
        const Witness witness(home);

        EXPECT_THAT(probe({.paths = {item}, .home = home.path()}).lines,
                    ElementsAre("refused: The Trash there belongs to somebody else."));
        EXPECT_THAT(witness.complaints(), IsEmpty());
    });
}

TEST(TrashOnMounts, WhatIsMountedIsRefused)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("in/folder/stick");
    const FilePath bound = home.folder("in/bound");
    const FilePath file = home.file("in/file");
    home.file("other");
    inOwnMounts([&] {
        mountMemory(stick);
        home.file("in/folder/stick/item");
        mountFolder(home.folder("disk"), bound);
        mountFolder(home / "other", file);
        const Witness witness(home);

        const ProbeResult result =
            probe({.paths = {stick, bound, file, home / "in/folder", home / "in", stick + '/'}, .home = home.path()});

        EXPECT_THAT(result.lines,
                    AllOf(SizeIs(6), Each(std::string("refused: Another volume is mounted there or inside."))));
        EXPECT_THAT(witness.complaints(), IsEmpty());
    });
}

TEST(TrashOnMounts, AFolderIsRefusedThatHoldsAMountThroughItsOtherName)
{
    const TemporaryHome home;
    const FilePath films = home.folder("films");
    home.folder("disk/films/cut/memory");
    inOwnMounts([&] {
        mountFolder(home / "disk/films", films);
        mountMemory(films + "/cut/memory");
        const Witness witness(home);

        const ProbeResult result = probe(
            {.paths = {home / "disk/films/cut", home / "disk/films/cut/memory", films + "/cut"}, .home = home.path()});

        EXPECT_THAT(result.lines,
                    AllOf(SizeIs(3), Each(std::string("refused: Another volume is mounted there or inside."))));
        EXPECT_THAT(witness.complaints(), IsEmpty());
    });
}

TEST(TrashOnMounts, TheHomeAndItsTrashAreKnownThroughOtherMounts)
{
    const TemporaryHome home;
    home.file("u/.local/share/Trash/files/item");
    const FilePath other = home.folder("other");
    inOwnMounts([&] {
        mountFolder(home / "u", home.folder("again/u"));
        mountFolder(home.path(), other);
        const Witness witness(home);
        const FilePath own = home / "u";

        EXPECT_THAT(probe({.paths = {other + "/u"}, .home = own}).lines,
                    ElementsAre("refused: It is the home folder, or holds it."));
        EXPECT_THAT(probe({.paths = {home / "again/u/.local"}, .home = own}).lines,
                    ElementsAre("refused: It holds a Trash."));
        EXPECT_THAT(probe({.paths = {other + "/u/.local/share/Trash/files/item"}, .home = own}).lines,
                    ElementsAre("refused: It is in a Trash already."));
        EXPECT_THAT(witness.complaints(), IsEmpty());
    });
}

TEST(TrashOnMounts, AFullDiskKeepsTheItemAndNoRecord)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick, "size=64k");
        home.folder("stick/" + ownTrash() + "/files");
        home.folder("stick/" + ownTrash() + "/info");
        const FilePath item = home.file("stick/item", 64 * 1024);
        const Witness witness(home, {}, "stick/" + ownTrash().toStdString());

        const ProbeResult result = probe({.paths = {item}, .home = home.path()});

        EXPECT_THAT(result.lines, ElementsAre("failed: Its record cannot be written: No space left on device"));
        EXPECT_THAT(witness.complaints(), IsEmpty());
        const DecodedTrash trash = decodeTrash(stick + '/' + ownTrash(), stick);
        EXPECT_THAT(trash.items, IsEmpty());
        EXPECT_THAT(trash.brokenRecords, IsEmpty());
        EXPECT_THAT(trash.orphans, IsEmpty());
    });
}

TEST(TrashOnMounts, ADiskOutOfInodesKeepsTheItemAndNoRecord)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick, "nr_inodes=6");
        home.folder("stick/" + ownTrash() + "/files");
        home.folder("stick/" + ownTrash() + "/info");
        const FilePath item = home.file("stick/item", 1);
        home.folder("stick/last");
        const Witness witness(home, {}, "stick/" + ownTrash().toStdString());

        const ProbeResult result = probe({.paths = {item}, .home = home.path()});

        EXPECT_THAT(result.lines, ElementsAre("failed: Its record cannot be written: No space left on device"));
        EXPECT_THAT(witness.complaints(), IsEmpty());
        EXPECT_THAT(decodeTrash(stick + '/' + ownTrash(), stick).brokenRecords, IsEmpty());
    });
}

TEST(TrashOnMounts, AMountWithoutRightsAtItsTopKeepsTheItem)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        home.file("stick/own/item");
        giveAway(home);
        ASSERT_EQ(chmod(stick.constData(), 0555), 0);
        const Witness witness(home);

        const ProbeResult result = probe({.paths = {stick + "/own/item"}, .home = home.path(), .withoutRights = true});

        EXPECT_THAT(result.lines, ElementsAre("failed: The Trash there cannot be made: Permission denied"));
        EXPECT_THAT(witness.complaints(), IsEmpty());
    });
}

TEST(TrashOnMounts, AMountThatCannotBeWrittenKeepsTheItem)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        const FilePath item = home.file("stick/item");
        ASSERT_EQ(mount(nullptr, stick.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
        const Witness witness(home);

        EXPECT_THAT(probe({.paths = {item}, .home = home.path()}).lines,
                    ElementsAre("failed: The Trash there cannot be made: Read-only file system"));
        EXPECT_THAT(witness.complaints(), IsEmpty());
    });
}

TEST(TrashOnMounts, AMountThatAnotherOneCoversIsLeftAlone)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        const FilePath item = home.file("stick/in/item");
        ASSERT_EQ(chdir((stick + "/in").constData()), 0);
        mountMemory(stick);
        const Witness witness(home);

        EXPECT_THAT(probe({.paths = {"item"}, .home = home.path()}).lines,
                    ElementsAre(StartsWith("failed: Its folder cannot be opened: ")));
        EXPECT_EQ(access("item", F_OK), 0);
        EXPECT_THAT(witness.complaints(), IsEmpty());
    });
}

TEST(TrashOnMounts, AVolumeThatAnotherOneCoversMeanwhileKeepsTheItem)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("stick");
    inOwnMounts([&] {
        mountMemory(stick);
        const FilePath item = home.file("stick/in/item");
        bool isCovered = false;
        // When its top is about to be opened, after the mounts were read
        const SystemCalls covering = instrumented([&](const Call &call, const auto &real) {
            if (!isCovered && call.name == "openat" && call.path == stick.toStdString()) {
                mountMemory(stick);
                isCovered = true;
            }
            return real();
        });

        const TrashOutcome outcome = XdgTrash(home.path(), home / ".local/share", covering).move(item, 0);

        EXPECT_TRUE(isCovered);
        EXPECT_NE(outcome.kind, TrashOutcome::Kind::moved);
        EXPECT_FALSE(home.inventory().contains("stick/" + ownTrash().toStdString())) << "no Trash on the other volume";
        ASSERT_EQ(umount(stick.constData()), 0);
        EXPECT_EQ(access(item.constData(), F_OK), 0);
    });
}

TEST(TrashMounts, ItIsKnownBeforehandWhatWillBeLeft)
{
    const TemporaryHome home;
    const FilePath stick = home.folder("holder/stick");
    inOwnMounts([&] {
        mountMemory(stick);
        home.file(".local/share/Trash/files/a");
        home.link("link", "nowhere");
        const QList<FilePath> paths{home.file("file"),
                                    home / "holder",
                                    stick,
                                    home.file("holder/stick/inner"),
                                    home.path(),
                                    home / ".local",
                                    home / ".local/share/Trash/files/a",
                                    home / "link",
                                    home / "gone"};
        const XdgTrash trash(home.path(), home / ".local/share");
        EXPECT_EQ(trash.leaves(paths), (QList<bool>{false, true, true, false, true, true, true, false, false}));
        for (const FilePath &path : paths.mid(0, 4))
            EXPECT_EQ(trash.leaves({path}).first(), trash.move(path, 0).kind == TrashOutcome::Kind::refused)
                << path.constData();
    });
}

} // namespace tidlo
