// Concurrent changes while items are moved: other programs that move too, and folders or items that are swapped.

#include "FastDisk.h"
#include "InstrumentedCalls.h"
#include "Probe.h"
#include "Scene.h"
#include "TrashDecoder.h"
#include "Witness.h"
#include "platform/linux/XdgTrash.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <thread>

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

namespace tidlo {

using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Kind = TrashOutcome::Kind;
constexpr std::time_t timeOfMove = 1'700'000'000;
constexpr int processes = 4;

std::string relativeTo(const TemporaryHome &home, const FilePath &path)
{
    return path.mid(home.path().size() + 1).toStdString();
}

/// The paths below at which the inode \a inode is.
std::vector<std::string> placesOf(const TemporaryHome &home, ino_t inode)
{
    std::vector<std::string> places;
    for (const auto &[path, entry] : home.inventory()) {
        if (entry.inode == inode)
            places.push_back(path);
    }
    return places;
}

} // namespace

TEST(TrashRaces, FourProgramsThatMoveItemsOfTheSameNamesKeepThemApart)
{
    const TemporaryHome home;
    std::vector<ProbeRun> runs(processes, {.paths = {}, .home = home.path()});
    std::set<std::string> selected;
    for (int process = 0; process < processes; ++process) {
        for (int at = 0; at < 50; ++at) {
            const FilePath relative = FilePath::number(process) + '/' + FilePath::number(at) + "/node_modules";
            home.file(relative + "/a.js", 1);
            runs[process].paths.push_back(home / relative);
            selected.insert(relative.toStdString());
        }
    }
    const Witness witness(home, selected);
    const auto before = home.inventory();

    for (const ProbeResult &result : probeAtOnce(runs)) {
        EXPECT_TRUE(result.allMoved);
        EXPECT_THAT(result.lines, SizeIs(50));
    }

    EXPECT_THAT(witness.complaints(), IsEmpty());
    const DecodedTrash trash = decodeTrash(trashOf(home));
    std::set<std::string> originals;
    for (const DecodedItem &item : trash.items) {
        originals.insert(relativeTo(home, item.originalPath));
        EXPECT_EQ(item.inode, before.at(relativeTo(home, item.originalPath)).inode);
    }
    EXPECT_EQ(originals, selected);
    EXPECT_THAT(trash.items, SizeIs(selected.size()));
    EXPECT_THAT(trash.orphans, IsEmpty());
}

TEST(TrashRaces, FourProgramsThatMoveTheSameItemsMoveEachOnce)
{
    const TemporaryHome home;
    std::vector<FilePath> paths;
    std::set<std::string> selected;
    for (int at = 0; at < 100; ++at) {
        paths.push_back(home.file("in/" + FilePath::number(at), 1));
        selected.insert("in/" + std::to_string(at));
    }
    const Witness witness(home, selected);

    std::map<std::string, int> told;
    for (const ProbeResult &result : probeAtOnce({processes, {.paths = paths, .home = home.path()}})) {
        for (const std::string &line : result.lines)
            ++told[line];
    }

    EXPECT_EQ(told, (std::map<std::string, int>{{"moved", 100}, {"gone", (processes - 1) * 100}}));
    EXPECT_THAT(witness.complaints(), IsEmpty());
    EXPECT_THAT(decodeTrash(trashOf(home)).items, SizeIs(100));
}

namespace {

/// A folder with an item, and folders outside of it that nobody selected, to which links are made to lead.
class SwapScene final
{
public:
    SwapScene()
        : home(fastDisk())
    {
        home.file("outside/item/precious", 5);
        home.file("outside/file", 5);
        home.file("in/item/inner", 3);
        home.file("in/neighbour", 3);
        home.folder("aside");
        for (const char *path : {"outside/item/precious", "outside/item", "outside/file"})
            victims.emplace(path, home.inventory().at(path));
        item = home.inventory().at("in/item").inode;
    }

    /// Each replaces the item or its folder by something else.
    static constexpr int ways = 5;
    void swap(int way) const
    {
        switch (way) {
        case 0: // The item becomes a link to a folder that nobody selected.
            moveAside("in/item", "aside/item");
            home.link("in/item", "../outside/item");
            break;
        case 1: // The item becomes a link to a file that nobody selected.
            moveAside("in/item", "aside/item");
            home.link("in/item", home / "outside/file");
            break;
        case 2: // The item becomes another folder of the same name.
            moveAside("in/item", "aside/item");
            home.file("in/item/other", 1);
            break;
        case 3: // The folder becomes a link to a folder with another item of that name.
            moveAside("in", "aside/in");
            home.link("in", "outside");
            break;
        default: // The item disappears.
            moveAside("in/item", "aside/item");
        }
    }

    void expectNoVictim() const
    {
        const auto after = home.inventory();
        for (const auto &[path, entry] : victims)
            EXPECT_EQ(after.contains(path) ? after.at(path) : TemporaryHome::Entry{}, entry) << path;
        EXPECT_EQ(after.count("outside"), 1U);
    }

    /// Checks that the item, and whatever replaced it, are where they were put or in the Trash with a complete record.
    void expectNothingLost() const
    {
        EXPECT_THAT(placesOf(home, item), SizeIs(1));
        const DecodedTrash trash = decodeTrash(trashOf(home));
        EXPECT_THAT(trash.orphans, IsEmpty());
        EXPECT_THAT(trash.brokenRecords, IsEmpty());
        for (const DecodedItem &trashed : trash.items) {
            EXPECT_TRUE(trashed.inode) << "a record of nothing";
            EXPECT_TRUE(trashed.originalPath == home / "in/item" || trashed.originalPath == home / "aside/in/item");
        }
    }

    bool isAnythingInTrash() const { return home.inventory().contains(trashedPath); }

    const TemporaryHome home;

private:
    void moveAside(const FilePath &from, const FilePath &to) const
    {
        const bool isAside = rename((home / from).constData(), (home / to).constData()) == 0;
        EXPECT_TRUE(isAside || errno == ENOENT) << "unless it was moved before";
    }

    static constexpr const char *trashedPath = ".local/share/Trash/files/item";
    std::map<std::string, TemporaryHome::Entry> victims;
    ino_t item = 0;
};

/// Moves the item, and swaps it in that \a way before call number \a at. Returns how many calls there were.
int moveWithSwap(const SwapScene &scene, int way, int at)
{
    int calls = 0;
    const SystemCalls swapping = instrumented([&](const Call &call, const auto &real) {
        calls = call.number;
        if (call.number == at)
            scene.swap(way);
        return real();
    });
    const FilePath &home = scene.home.path();
    const TrashOutcome outcome = XdgTrash(home, home + "/.local/share", swapping).move(home + "/in/item", timeOfMove);

    scene.expectNoVictim();
    scene.expectNothingLost();
    EXPECT_EQ(scene.isAnythingInTrash(), outcome.kind == Kind::moved) << outcome.reason.toStdString();
    return calls;
}

} // namespace

TEST(TrashRaces, WhatIsSwappedForALinkAtTheWorstMomentMovesNoVictim)
{
    constexpr int wanted = 1'000;
    int swaps = 0;
    const int calls = moveWithSwap(SwapScene(), 0, 0);
    // From the second call on: before the first one, the swapped item is simply the requested one.
    for (int round = 0; swaps < wanted; ++round) {
        for (int way = 0; way < SwapScene::ways && swaps < wanted; ++way, ++swaps) {
            const int at = 2 + round % (calls - 1);
            SCOPED_TRACE(testing::Message() << "way " << way << " before call " << at);
            moveWithSwap(SwapScene(), way, at);
        }
    }
    std::cout << swaps << " swaps, at each of " << calls - 1 << " calls\n";
}

TEST(TrashRaces, AnItemThatIsSwappedAfterItWasLookedAtIsNotMistakenForAnother)
{
    // Just before the rename: what is then renamed is not what was checked.
    int renameCall = 0;
    const SwapScene first;
    const SystemCalls watching = instrumented([&](const Call &call, const auto &real) {
        renameCall = call.name == "renameat2" ? call.number : renameCall;
        return real();
    });
    const FilePath &firstHome = first.home.path();
    ASSERT_EQ(XdgTrash(firstHome, firstHome + "/.local/share", watching).move(firstHome + "/in/item", timeOfMove).kind,
              Kind::moved);

    for (const int way : {0, 1, 2}) {
        const SwapScene scene;
        const FilePath &home = scene.home.path();
        const SystemCalls swapping = instrumented([&](const Call &call, const auto &real) {
            if (call.number == renameCall)
                scene.swap(way);
            return real();
        });

        const TrashOutcome outcome =
            XdgTrash(home, home + "/.local/share", swapping).move(home + "/in/item", timeOfMove);

        EXPECT_EQ(outcome, (TrashOutcome{.kind = Kind::failed,
                                         .reason = QStringLiteral("Something else took its place meanwhile."),
                                         .error = ESTALE}));
        EXPECT_FALSE(scene.isAnythingInTrash()) << "it was put back";
        EXPECT_TRUE(scene.home.inventory().contains("in/item"));
        scene.expectNoVictim();
        scene.expectNothingLost();
    }
}

TEST(TrashRaces, WhatCannotBePutBackStaysInTheTrashWithItsRecord)
{
    const SwapScene scene;
    const FilePath &home = scene.home.path();
    int renames = 0;
    const SystemCalls swapping = instrumented([&](const Call &call, const auto &real) {
        renames += call.name == "renameat2" ? 1 : 0;
        if (call.name == "renameat2" && renames == 1)
            scene.swap(2);
        if (call.name == "renameat2" && renames == 2)
            scene.home.file("in/item", 1); // The place is taken again.
        return real();
    });

    const TrashOutcome outcome = XdgTrash(home, home + "/.local/share", swapping).move(home + "/in/item", timeOfMove);

    EXPECT_EQ(outcome.kind, Kind::anotherMoved);
    EXPECT_EQ(outcome.reason, QStringLiteral("Something else took its place meanwhile, and is in the Trash now."));
    EXPECT_TRUE(scene.isAnythingInTrash());
    scene.expectNothingLost();
    scene.expectNoVictim();
}

TEST(TrashRaces, WhatIsPutBackReplacesNothingThatTookThePlaceMeanwhile)
{
    for (const int way : {0, 1}) { // A link, which rename() would put in the place of a file.
        const SwapScene scene;
        const FilePath &home = scene.home.path();
        int renames = 0;
        ino_t newcomer = 0;
        const SystemCalls swapping = instrumented([&](const Call &call, const auto &real) {
            renames += call.name == "renameat2" ? 1 : 0;
            if (call.name == "renameat2" && renames == 1)
                scene.swap(way);
            if (call.name == "renameat2" && renames == 2) {
                scene.home.file("in/item", 1);
                newcomer = scene.home.inventory().at("in/item").inode;
            }
            return real();
        });

        EXPECT_NE(XdgTrash(home, home + "/.local/share", swapping).move(home + "/in/item", timeOfMove).kind,
                  Kind::moved);

        EXPECT_THAT(placesOf(scene.home, newcomer), testing::ElementsAre("in/item"));
        EXPECT_TRUE(scene.isAnythingInTrash());
        scene.expectNothingLost();
        scene.expectNoVictim();
    }
}

TEST(TrashRaces, AFolderThatIsSwappedAllTheTimeLosesNothing)
{
    const TemporaryHome home(fastDisk());
    const FilePath item = home.file("in/item", 3);
    const FilePath link = home.link("in/link", "../outside/precious");
    home.file("outside/precious", 5);
    const auto before = home.inventory();
    const ino_t file = before.at("in/item").inode;
    const ino_t linkItself = before.at("in/link").inode;
    const XdgTrash trash(home.path(), home / ".local/share");

    constexpr int rounds = 1'000;
    std::jthread swapper([&](std::stop_token stop) {
        while (!stop.stop_requested())
            renameat2(AT_FDCWD, item.constData(), AT_FDCWD, link.constData(), RENAME_EXCHANGE);
    });
    int movedLinks = 0;
    for (int round = 0; round < rounds; ++round) {
        const TrashOutcome outcome = trash.move(item, timeOfMove);
        const DecodedTrash decoded = decodeTrash(trashOf(home));
        ASSERT_THAT(decoded.items, SizeIs(outcome.kind == Kind::moved ? 1 : 0)) << outcome.reason.toStdString();
        for (const DecodedItem &trashed : decoded.items) {
            ASSERT_TRUE(trashed.inode == file || trashed.inode == linkItself);
            movedLinks += trashed.inode == linkItself ? 1 : 0;
            ASSERT_TRUE(restore(trashOf(home), trashed));
        }
    }
    swapper.request_stop();
    swapper.join();

    std::cout << rounds << " moves under swapping, the link itself was moved " << movedLinks << " times\n";
    EXPECT_THAT(placesOf(home, file), SizeIs(1));
    EXPECT_THAT(placesOf(home, linkItself), SizeIs(1));
    EXPECT_EQ(home.inventory().at("outside/precious"), before.at("outside/precious"));
}

} // namespace tidlo
