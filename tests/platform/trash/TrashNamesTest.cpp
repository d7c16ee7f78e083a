// Whatever the name of an item is, it comes back under the same name.

#include "FastDisk.h"
#include "Probe.h"
#include "Scene.h"
#include "TrashDecoder.h"
#include "Witness.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include <unistd.h>

namespace tidlo {

using testing::AllOf;
using testing::Each;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// Moves \a names, all files in the folder "in", and puts them back.
void expectAllComeBack(const TemporaryHome &home, const std::vector<FilePath> &names)
{
    home.file("in/neighbour");
    std::set<std::string> selected;
    std::vector<FilePath> paths;
    for (const FilePath &name : names) {
        paths.push_back(home.file("in/" + name, 1));
        selected.insert("in/" + name.toStdString());
    }
    const Witness witness(home, selected);
    const auto before = home.inventory();

    constexpr size_t together = 1'000; // More do not fit into one command line.
    for (size_t at = 0; at < paths.size(); at += together) {
        const auto end = paths.begin() + static_cast<long>(std::min(at + together, paths.size()));
        const ProbeResult result = probe({.paths = {paths.begin() + static_cast<long>(at), end}, .home = home.path()});
        EXPECT_TRUE(result.allMoved);
        EXPECT_THAT(result.lines, Each(std::string("moved")));
        EXPECT_EQ(result.lines.size(), static_cast<size_t>(end - paths.begin()) - at);
    }

    const DecodedTrash trash = decodeTrash(trashOf(home));
    EXPECT_THAT(trash.items, SizeIs(names.size()));
    EXPECT_THAT(trash.orphans, IsEmpty());
    EXPECT_THAT(trash.brokenRecords, IsEmpty());
    EXPECT_THAT(witness.complaints(), IsEmpty());
    for (const DecodedItem &item : trash.items) {
        ASSERT_TRUE(item.originalPath.startsWith(home / "in/")) << item.originalPath.toStdString();
        const auto was = before.find(item.originalPath.mid(home.path().size() + 1).toStdString());
        ASSERT_NE(was, before.end()) << item.originalPath.toPercentEncoding().toStdString();
        EXPECT_EQ(item.inode, was->second.inode);
        EXPECT_TRUE(restore(trashOf(home), item)) << item.originalPath.toPercentEncoding().toStdString();
    }
    const auto after = home.inventory();
    for (const std::string &path : selected)
        EXPECT_EQ(after.contains(path) ? after.at(path).inode : 0, before.at(path).inode);
}

FilePath randomName(std::mt19937 &random)
{
    std::uniform_int_distribution<int> length(1, 255);
    std::uniform_int_distribution<int> byte(1, 255);
    FilePath name(length(random), '\0');
    for (char &each : name) {
        do
            each = static_cast<char>(byte(random));
        while (each == '/');
    }
    return name == "." || name == ".." ? FilePath("...") : name;
}

} // namespace

TEST(TrashNames, AwkwardOnesComeBackByteForByte)
{
    const TemporaryHome home;

    expectAllComeBack(home, {"new\nline",
                             "\n",
                             "100%",
                             "%41",
                             "%",
                             "-rf",
                             "--help",
                             "--",
                             "\xff\xfe\x80",
                             "\xc3",
                             " ",
                             " leading",
                             "trailing ",
                             "back\\slash",
                             "\xc3\xa4\xf0\x9f\x98\x80",
                             "[Trash Info]",
                             "a=b",
                             "x;y#z&",
                             "\x01\x1b[31m",
                             "~",
                             "name.trashinfo",
                             ".trashinfo",
                             ".hidden",
                             "...",
                             "..x",
                             "files",
                             "info",
                             "*",
                             "$HOME",
                             "a\tb\rc",
                             "\"quoted\"",
                             "DeletionDate="});
}

TEST(TrashNames, LongOnesComeBackByteForByte)
{
    const TemporaryHome home;
    std::vector<FilePath> names;
    for (qsizetype size = 238; size <= 255; ++size) {
        names.push_back(FilePath(size, 'a'));
        names.push_back(FilePath(size - 4, 'b') + ".zip");
        names.push_back(FilePath(size, '\xff'));
        names.push_back(FilePath("\xc3\xa4").repeated(size / 2) + FilePath(size % 2, 'c'));
    }

    expectAllComeBack(home, names);
}

TEST(TrashNames, TenThousandRandomOnesComeBackByteForByte)
{
    const TemporaryHome home(fastDisk());
    std::mt19937 random(20'231'114);
    std::set<FilePath> names;
    while (names.size() < 10'000)
        names.insert(randomName(random));

    expectAllComeBack(home, {names.begin(), names.end()});
}

TEST(TrashNames, FiftyItemsOfOneNameKeepApart)
{
    const TemporaryHome home;
    std::vector<FilePath> paths;
    std::set<std::string> selected;
    for (int at = 0; at < 50; ++at) {
        const FilePath relative = "in/" + FilePath::number(at) + "/node_modules";
        home.file(relative + "/a.js", 1);
        paths.push_back(home / relative);
        selected.insert(relative.toStdString());
    }
    const Witness witness(home, selected);
    const auto before = home.inventory();

    EXPECT_TRUE(probe({.paths = paths, .home = home.path()}).allMoved);

    EXPECT_THAT(witness.complaints(), IsEmpty());
    const DecodedTrash trash = decodeTrash(trashOf(home));
    std::set<FilePath> originals;
    for (const DecodedItem &item : trash.items) {
        originals.insert(item.originalPath);
        EXPECT_EQ(item.inode, before.at(item.originalPath.mid(home.path().size() + 1).toStdString()).inode);
    }
    EXPECT_EQ(originals, std::set<FilePath>(paths.begin(), paths.end()));
}

TEST(TrashNames, AnItemWithoutARecordInTheTrashIsKept)
{
    const TemporaryHome home;
    home.file(".local/share/Trash/files/a.txt", 7);
    home.file(".local/share/Trash/files/b/inner", 7);
    home.folder(".local/share/Trash/info");
    const Witness witness(home, {"a.txt", "b"});
    const auto before = home.inventory();

    EXPECT_TRUE(probe({.paths = {home.file("a.txt", 3), home.folder("b")}, .home = home.path()}).allMoved);

    const auto after = home.inventory();
    for (const char *orphan : {".local/share/Trash/files/a.txt", ".local/share/Trash/files/b/inner"})
        EXPECT_EQ(after.at(orphan), before.at(orphan));
    EXPECT_THAT(witness.complaints(), IsEmpty());
    const DecodedTrash trash = decodeTrash(trashOf(home));
    EXPECT_THAT(trash.orphans, testing::ElementsAre("a.txt", "b"));
    EXPECT_THAT(trash.items, testing::ElementsAre(Field(&DecodedItem::name, FilePath("a 2.txt")),
                                                  Field(&DecodedItem::name, FilePath("b 2"))));
}

TEST(TrashNames, ARecordWithoutAnItemInTheTrashIsKept)
{
    const TemporaryHome home;
    home.folder(".local/share/Trash/files");
    home.file(".local/share/Trash/info/a.txt.trashinfo", 7);
    const FilePath item = home.file("a.txt", 3);
    const auto before = home.inventory();

    EXPECT_TRUE(probe({.paths = {item}, .home = home.path()}).allMoved);

    const char *orphan = ".local/share/Trash/info/a.txt.trashinfo";
    EXPECT_EQ(home.inventory().at(orphan), before.at(orphan));
    EXPECT_THAT(decodeTrash(trashOf(home)).items,
                testing::ElementsAre(
                    AllOf(Field(&DecodedItem::name, FilePath("a 2.txt")), Field(&DecodedItem::originalPath, item))));
}

TEST(TrashNames, AnotherNameOfTheItemItselfInTheTrashIsNotTakenForIt)
{
    const TemporaryHome home;
    const FilePath item = home.file("a.txt", 3);
    home.hardLink(".local/share/Trash/files/a.txt", item);
    home.folder(".local/share/Trash/info");

    EXPECT_TRUE(probe({.paths = {item}, .home = home.path()}).allMoved);

    EXPECT_FALSE(home.inventory().contains("a.txt"));
    const DecodedTrash trash = decodeTrash(trashOf(home));
    EXPECT_THAT(trash.orphans, testing::ElementsAre("a.txt"));
    EXPECT_THAT(trash.items, testing::ElementsAre(AllOf(Field(&DecodedItem::name, FilePath("a 2.txt")),
                                                        Field(&DecodedItem::originalPath, item))));
}

} // namespace tidlo
