#include "scanner/FindingRules.h"
#include "scanner/RuleTest.h"

#include <array>

namespace tidlo {

using testing::_;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Return;
using testing::SizeIs;

namespace {

class DuplicateProjectRules : public RuleTest
{
protected:
    /// A folder of the local server, modified this many days ago.
    FilePath project(const FilePath &name, int days = 0) const
    {
        const FilePath path = home.folder("Sites/localhost/" + name);
        home.setModified("Sites/localhost/" + name, daysAgo(days));
        return path;
    }
    CleanupCandidate found() const
    {
        const QList<CleanupCandidate> candidates = candidatesOf(duplicateProjectCandidates({files, home.path()}));
        EXPECT_THAT(candidates, SizeIs(1));
        return candidates.value(0);
    }
};

} // namespace

TEST(NormalizedProjectName, LosesTheSuffixesOfCopies)
{
    struct Row
    {
        const char *name;
        const char *normalized;
    };
    constexpr std::array rows{
        Row{"shop", "shop"},
        Row{"SHOP", "shop"},
        Row{"shop copy", "shop"},
        Row{"shop copy 2", "shop"},
        Row{"Shop Copy 14", "shop"},
        Row{"shop copy2", "shop copy2"},
        Row{"shop-copy", "shop-copy"},
        Row{"copy", "copy"},
        Row{"shop backup", "shop"},
        Row{"Shop-Backup", "shop"},
        Row{"shop_backup", "shop"},
        Row{"shop.backup", "shop.backup"},
        Row{"backup", "backup"},
        Row{"shop backup backup", "shop"}, // The second and the third pattern each remove one.
        Row{"shop 3 jan 2024", "shop"},
        Row{"shop 03 January", "shop"},
        Row{"shop 3 feb", "shop"},
        Row{"shop 12 march 2024", "shop"},
        Row{"shop 1 apr.", "shop"},
        Row{"shop 31 May at noon", "shop"},
        Row{"erp 12 march 2024", "erp"},
        Row{"erp 12 june 2024", "erp 12 june"},
        Row{"shop 123 jan", "shop 123 jan"},
        Row{"shop jan", "shop jan"},
        Row{"shop 3jan", "shop 3jan"},
        Row{"shop_2", "shop"},
        Row{"shop-2", "shop"},
        Row{"shop_01", "shop"},
        Row{"shop - 2", "shop"},
        Row{"shop2", "shop2"},
        Row{"shop-2a", "shop-2a"},
        Row{"site backup 2", "site backup"}, // No pattern is applied twice.
        Row{"shop copy 2 copy", "shop copy"},
        Row{"  shop  ", "shop"},
        Row{"\tshop\n", "shop"},
        Row{" copy", ""},
        Row{"2024", "2024"},
        Row{"", ""},
        Row{"BÄCKEREI copy", "bäckerei"},
        Row{"shop copy \xd9\xa3", "shop"}, // An Arabic digit counts as a digit.
        Row{"shop\xc2\xa0", "shop"},       // A no-break space counts as white space.
    };
    for (const Row &row : rows)
        EXPECT_EQ(normalizedProjectName(row.name).toStdString(), row.normalized) << row.name;
}

TEST(NormalizedProjectName, LosesSuffixesInTheOrderOfThePatternsAlone)
{
    struct Row
    {
        const char *name;
        const char *normalized;
    };
    constexpr std::array rows{
        Row{"shop backup copy", "shop"},      // First the copy is removed, then the backup.
        Row{"shop copy backup", "shop copy"}, // Too late for the copy pattern.
        Row{"shop-backup backup", "shop"},    // First the backup after a space, then the one after a hyphen.
        Row{"shop copy 3 jan", "shop copy"},
        Row{"shop backup 3 jan", "shop backup"},
        Row{"shop-backup 3 may", "shop-backup"},
        Row{"shop copy-2", "shop copy"},
        Row{"shop-2 3 jan", "shop"}, // The number is removed last, after the date.
        Row{"shop-2 3 may", "shop"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(normalizedProjectName(row.name).toStdString(), row.normalized) << row.name;
}

TEST(NormalizedProjectName, LosesDatesWhoseDayHasOneOrTwoDigits)
{
    for (const QByteArray month : {"jan", "feb", "mar", "apr", "may"}) {
        EXPECT_EQ(normalizedProjectName("shop 3 " + month), QStringLiteral("shop"));
        EXPECT_EQ(normalizedProjectName("shop 99 " + month + " 2024"), QStringLiteral("shop")) << "a day or not";
        EXPECT_EQ(normalizedProjectName("shop 100 " + month).toStdString(), "shop 100 " + month.toStdString());
    }
}

TEST(NormalizedProjectName, KeepsNamesApartThatAreNotValidUtf8)
{
    EXPECT_NE(normalizedProjectName("caf\xe9"), normalizedProjectName("caf\xe8"));
    EXPECT_NE(normalizedProjectName("caf\xe9"), normalizedProjectName("caf\xc9"));
    EXPECT_NE(normalizedProjectName("caf\xe9"), normalizedProjectName("caf\xc3\xa9"));
    EXPECT_NE(normalizedProjectName("shop\xa0"), normalizedProjectName("shop"));
    EXPECT_NE(normalizedProjectName("shop\xff"), normalizedProjectName("shop\xef\xbf\xbd"));
    EXPECT_EQ(normalizedProjectName("Caf\xe9 Copy 2"), normalizedProjectName("caf\xe9"));
}

TEST_F(DuplicateProjectRules, GiveOneCandidateAlsoWhenThereAreNoCopies)
{
    expectFixedFields(found(), {"Older duplicate project copies",
                                "Folders that look like older copies or backups. Tidlo keeps the newest detected copy "
                                "out of this recommendation.",
                                CleanupCategory::devProjects, CleanupRisk::review, true});
    EXPECT_THAT(found().paths, IsEmpty());
    EXPECT_EQ(found().bytes, 0);
}

TEST_F(DuplicateProjectRules, ProposeTheOlderCopyAndKeepTheNewest)
{
    project("shop", 0);
    const FilePath copy = project("shop copy", 365);
    EXPECT_THAT(found().paths, ElementsAre(copy));
}

TEST_F(DuplicateProjectRules, KeepACopyThatIsNewerThanItsOriginal)
{
    const FilePath original = project("shop", 365);
    project("shop copy", 0);
    EXPECT_THAT(found().paths, ElementsAre(original));
}

TEST_F(DuplicateProjectRules, OrderTheOlderCopiesNewestFirst)
{
    project("shop", 1);
    const FilePath oldest = project("Shop-Backup", 30);
    const FilePath older = project("shop_2", 20);
    EXPECT_THAT(found().paths, ElementsAre(older, oldest));
}

TEST_F(DuplicateProjectRules, TellDifferentProjectsApart)
{
    project("erp 12 march 2024", 1);
    project("erp 12 june 2024", 2);
    project("shop", 3);
    EXPECT_THAT(found().paths, IsEmpty());
}

TEST_F(DuplicateProjectRules, KeepTheFirstListedWhereDatesAreEqual)
{
    project("shop", 5);
    const FilePath copy = project("shop copy", 5);
    const FilePath copy2 = project("shop copy 2", 5);
    EXPECT_THAT(found().paths, ElementsAre(copy, copy2));
}

TEST_F(DuplicateProjectRules, KeepTheOrderOfManyFoldersWhoseDatesAreEqual)
{
    QList<FilePath> copies{project("shop", 5)};
    for (int number = 100; number < 160; ++number)
        copies.append(project("shop copy " + FilePath::number(number), 5));
    EXPECT_EQ(found().paths, copies.sliced(1));
}

TEST_F(DuplicateProjectRules, CompareDatesToTheNanosecond)
{
    const FilePath original = project("shop");
    project("shop copy");
    home.setModified("Sites/localhost/shop", daysAgo(5));
    home.setModified("Sites/localhost/shop copy", daysAgo(5) + std::chrono::nanoseconds(1));
    EXPECT_THAT(found().paths, ElementsAre(original));
}

TEST_F(DuplicateProjectRules, TakeAFolderWithoutDateForTheOldest)
{
    const FilePath root = home / "Sites/localhost/";
    const QList<DirectoryEntry> entries{
        {.path = root + "shop", .attributes = {.kind = FileKind::directory}},
        {.path = root + "shop copy", .attributes = {.kind = FileKind::directory}},
        {.path = root + "shop_2", .attributes = {.kind = FileKind::directory, .modified = daysAgo(90'000)}},
    };
    ON_CALL(files, contentsOfDirectory(home / "Sites/localhost", _)).WillByDefault(Return(entries));
    EXPECT_THAT(found().paths, ElementsAre(root + "shop", root + "shop copy"));
}

TEST_F(DuplicateProjectRules, IgnoreFilesLinksAndHiddenFolders)
{
    project("shop");
    home.file("Sites/localhost/shop copy");
    home.link("Sites/localhost/shop-2", "shop");
    project(".shop copy", 9);
    project(".shop", 10);
    EXPECT_THAT(found().paths, IsEmpty());
}

TEST_F(DuplicateProjectRules, SearchThreeRootsOnTheirOwn)
{
    const FilePath inFirst = project("app copy", 9);
    project("app", 1);
    const FilePath inSecond = project("bakcup erpnew/app copy", 9);
    project("bakcup erpnew/app", 1);
    const FilePath inThird = project("erps/app copy", 9);
    project("erps/app", 1);
    project("other/app copy", 9);
    project("other/app", 1);
    EXPECT_THAT(found().paths, ElementsAre(inFirst, inSecond, inThird));
}

TEST_F(DuplicateProjectRules, NeverCompareFoldersOfDifferentRoots)
{
    project("erps/app", 1);
    project("app copy", 9);
    project("bakcup erpnew/app-2", 5);
    EXPECT_THAT(found().paths, IsEmpty());
}

TEST_F(DuplicateProjectRules, VisitGroupsInTheOrderOfTheirFirstFolders)
{
    project("b", 1);
    project("a-2", 1);
    project("c copy", 1);
    const QList<FilePath> older{project("a-3", 9), project("b copy", 9), project("c copy 2", 9)};
    EXPECT_THAT(found().paths, ElementsAreArray(older));
}

TEST_F(DuplicateProjectRules, MeasureTheOlderCopiesInOneRequest)
{
    project("a", 1);
    project("b", 1);
    const FilePath olderA = project("a copy", 9);
    const FilePath olderB = project("b copy", 9);
    EXPECT_CALL(files, allocatedSizes(ElementsAre(olderA, olderB), _, _)).WillOnce(Return(QList<qint64>{40, 2}));
    EXPECT_EQ(found().bytes, 42);
}

TEST_F(DuplicateProjectRules, SumWhatTheOlderCopiesTakeOnTheDisk)
{
    const qint64 bytes = onDisk(home.file("Sites/localhost/shop copy/.git/pack", 70'000)) +
                         onDisk(home.file("Sites/localhost/shop copy/index.php", 3'000));
    home.file("Sites/localhost/shop/index.php", 9'000);
    project("shop copy", 9);
    project("shop", 1);
    EXPECT_EQ(found().bytes, bytes);
}

TEST_F(DuplicateProjectRules, PassOverRootsThatAreFilesOrCannotBeRead)
{
    project("app", 1);
    const FilePath older = project("app copy", 2);
    home.file("Sites/localhost/erps");
    home.link("Sites/localhost/bakcup erpnew", "nowhere");
    EXPECT_THAT(found().paths, ElementsAre(older));
    withoutAccessTo(home / "Sites/localhost", [this] { EXPECT_THAT(found().paths, IsEmpty()); });
}

TEST_F(DuplicateProjectRules, KeepAnyNameByteForByte)
{
    QList<FilePath> expected;
    for (const FilePath &name : awkwardNames()) {
        const FilePath shorter = name.left(200);
        project(shorter, 1);
        expected.append(project(shorter + " copy", 9));
    }
    EXPECT_THAT(found().paths, testing::UnorderedElementsAreArray(expected));
}

} // namespace tidlo
