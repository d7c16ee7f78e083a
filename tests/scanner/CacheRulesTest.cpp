#include "scanner/FindingRules.h"
#include "scanner/RuleTest.h"

namespace tidlo {

using testing::_;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class CacheRules : public RuleTest
{
protected:
    CleanupCandidate found() const
    {
        const QList<CleanupCandidate> candidates = candidatesOf(cacheCandidates({files, home.path()}));
        EXPECT_THAT(candidates, SizeIs(1));
        return candidates.value(0);
    }
};

} // namespace

TEST_F(CacheRules, GiveOneCandidateAlsoWhenNoCacheExists)
{
    expectFixedFields(found(), {"User and developer caches",
                                "Browser/package-manager caches. Apps may recreate these after cleanup.",
                                CleanupCategory::caches, CleanupRisk::safe, true});
    EXPECT_THAT(found().paths, IsEmpty());
    EXPECT_EQ(found().bytes, 0);
}

TEST_F(CacheRules, ListTenKnownFoldersInTheirOrder)
{
    QList<FilePath> expected;
    qint64 bytes = 0;
    for (const char *folder : {"Library/Caches/Google", "Library/Caches/BraveSoftware", "Library/Caches/pip",
                               "Library/Caches/ms-playwright", "Library/Caches/composer", "Library/Caches/electron",
                               "Library/Caches/node-gyp", "Library/Caches/Homebrew", ".cache", ".gradle/caches"}) {
        bytes += onDisk(home.file(FilePath(folder) + "/deep/.er/file", 3'000));
        expected.append(home / folder);
    }
    EXPECT_THAT(found().paths, ElementsAreArray(expected));
    EXPECT_EQ(found().bytes, bytes);
}

TEST_F(CacheRules, KeepTheOrderOfThoseThatExist)
{
    home.folder(".cache");
    home.folder("Library/Caches/pip");
    EXPECT_THAT(found().paths, ElementsAre(home / "Library/Caches/pip", home / ".cache"));
}

TEST_F(CacheRules, LeaveAllOtherCachesAlone)
{
    home.file("Library/Caches/com.example.Mail/x");
    home.file("Library/Caches/file");
    home.file("Library/Caches/google/x"); // A different name on a case-sensitive file system.
    home.file(".gradle/daemon/x");
    EXPECT_THAT(found().paths, IsEmpty());
}

TEST_F(CacheRules, MeasureAllFoldersInOneRequest)
{
    home.folder(".cache");
    home.folder(".gradle/caches");
    EXPECT_CALL(files, allocatedSizes(ElementsAre(home / ".cache", home / ".gradle/caches"), _, _))
        .WillOnce(testing::Return(QList<qint64>{40, 2}));
    EXPECT_EQ(found().bytes, 42);
}

TEST_F(CacheRules, CountNothingThatCannotBeReadOrLeadsElsewhere)
{
    home.file("elsewhere/x", 20'000);
    home.link("Library/Caches/pip", home / "elsewhere");
    home.link("Library/Caches/electron", "electron");
    const qint64 bytes = onDisk(home.file(".cache", 2'000)); // A file in the place of a folder.
    home.file(".gradle/caches/x");
    withoutAccessTo(home / ".gradle/caches", [&] {
        EXPECT_THAT(found().paths, ElementsAre(home / "Library/Caches/pip", home / ".cache", home / ".gradle/caches"));
        EXPECT_EQ(found().bytes, bytes);
    });
}

TEST_F(CacheRules, CountNothingOfACacheThatVanishesWhileItIsRead)
{
    home.file(".cache/x");
    ON_CALL(files, allocatedSizes)
        .WillByDefault([&](const QList<FilePath> &paths, const std::stop_token &stop, WalkNotes *notes) {
            std::rename((home / ".cache").constData(), (home / "gone").constData());
            return files.live().allocatedSizes(paths, stop, notes);
        });
    EXPECT_THAT(found().paths, ElementsAre(home / ".cache"));
    EXPECT_EQ(found().bytes, 0);
}

} // namespace tidlo
