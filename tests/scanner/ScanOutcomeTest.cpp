// The outcome of a scan, from the rules to the snapshot.

#include "scanner/ScannerTest.h"
#include "support/EveryFinding.h"

#include <functional>
#include <numeric>

namespace tidlo {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Return;

namespace {

using Clock = std::chrono::system_clock;
using ScanOutcome = ScannerTest;

} // namespace

TEST_F(ScanOutcome, OfAHomeWithNothingToFindTellsTheDiskAlone)
{
    home.file("notes.txt");
    ON_CALL(files, volumeCapacity).WillByDefault(Return(VolumeCapacity{.total = 1'000, .available = 250}));
    const ScanSnapshot snapshot = scanned();
    EXPECT_THAT(snapshot.candidates, IsEmpty());
    EXPECT_EQ(snapshot.totals, (ScanTotals{.diskUsedPercent = 0.75, .freeBytes = 250, .volumeBytes = 1'000}));
}

TEST_F(ScanOutcome, OfAVolumeWithoutCapacityTellsZeroPercent)
{
    home.file(".cache/x");
    ON_CALL(files, volumeCapacity).WillByDefault(Return(VolumeCapacity{.total = 0, .available = 0}));
    const ScanTotals totals = scanned().totals;
    EXPECT_EQ(totals.diskUsedPercent, 0);
    EXPECT_EQ(totals.recoverablePercent, 0);
    EXPECT_GT(totals.recoverableBytes, 0);
}

TEST_F(ScanOutcome, MergesTheFindingsOfAllRulesInTheirOrder)
{
    // Given the same number of bytes for every rule, so that the order of the rules decides.
    addEveryFinding(home);

    // When
    ON_CALL(files, volumeCapacity).WillByDefault(Return(VolumeCapacity{.total = 1'000'000, .available = 500'000}));
    const ScanSnapshot snapshot = scanned();

    // Then
    QList<QString> titles;
    for (const CleanupCandidate &candidate : snapshot.candidates)
        titles.append(candidate.title);
    EXPECT_THAT(titles,
                ElementsAre(u"Rebuildable project folders", u"Composer vendor folders",
                            u"Build and distribution outputs", u"WhatsApp / Chat Media & Attachments",
                            u"WhatsApp / Temporary App Caches", u"User and developer caches",
                            u"Downloads / old installers and archives",
                            u"Large & untouched files (>100MB, 60+ days old)", u"Older duplicate project copies"));
    const qint64 each = onDisk(home / ".cache/x");
    EXPECT_THAT(snapshot.candidates, testing::Each(Field(&CleanupCandidate::bytes, each)));
    EXPECT_EQ(snapshot.totals.totalBytes, 9 * each);
    EXPECT_EQ(snapshot.totals.recoverableBytes, 8 * each); // All but the chat media.
    EXPECT_DOUBLE_EQ(snapshot.totals.recoverablePercent, static_cast<double>(8 * each) / 1'000'000);
}

TEST_F(ScanOutcome, ListsAFileInBothCandidatesWhereTwoRulesFindIt)
{
    const FilePath path = home.file("Downloads/old.zip");
    ASSERT_EQ(truncate(path.constData(), 104'857'600), 0);
    home.setModified("Downloads/old.zip", Clock::now() - std::chrono::days(61));
    EXPECT_THAT(scanned().candidates,
                ElementsAre(AllOf(Field(&CleanupCandidate::category, CleanupCategory::downloads),
                                  Field(&CleanupCandidate::paths, ElementsAre(path))),
                            AllOf(Field(&CleanupCandidate::category, CleanupCategory::oldLargeFiles),
                                  Field(&CleanupCandidate::paths, ElementsAre(path)))));
}

TEST_F(ScanOutcome, TellsTheSizeOfEachPath)
{
    addEveryFinding(home);
    const FilePath second = home.file("Sites/other/node_modules/x", 20'000);
    const ScanResult found = result();
    EXPECT_EQ(found.sizes.size(), found.snapshot.candidates.size());
    for (const CleanupCandidate &candidate : found.snapshot.candidates) {
        const QList<qint64> sizes = found.sizes.value(candidate.id);
        EXPECT_EQ(sizes.size(), candidate.paths.size()) << candidate.title.toStdString();
        EXPECT_EQ(std::accumulate(sizes.begin(), sizes.end(), qint64(0)), candidate.bytes);
    }
    const CleanupCandidate &folders = found.snapshot.candidates.at(0);
    ASSERT_THAT(folders.paths, ElementsAre(home / "Sites/other/node_modules", home / "Sites/web/node_modules"));
    EXPECT_THAT(found.sizes.value(folders.id), ElementsAre(onDisk(second), onDisk(home / "Sites/web/node_modules/x")));
}

TEST_F(ScanOutcome, TellsThePlaceOfAPathThatLeadsThroughALinkAndOfOthersNone)
{
    home.file("elsewhere/old.zip");
    home.setModified("elsewhere/old.zip", Clock::now() - std::chrono::days(61));
    home.link("Downloads", "elsewhere");
    home.file(".cache/x");
    const ScanResult found = result();
    EXPECT_EQ(found.placeOf(home / "Downloads/old.zip"), home / "elsewhere/old.zip");
    EXPECT_EQ(found.places.size(), 1);
}

TEST_F(ScanOutcome, TellsWhichOfItsFilesHaveOtherNames)
{
    home.hardLink("elsewhere", home.file(".cache/x"));
    EXPECT_THAT(result().linked.keys(), ElementsAre(home / ".cache"));
}

TEST_F(ScanOutcome, StartsFromNothingEachTime)
{
    home.file(".cache/x");
    const ScanSnapshot first = scanned();
    const ScanSnapshot second = scanned();
    ASSERT_EQ(first.candidates.size(), 1);
    ASSERT_EQ(second.candidates.size(), 1);
    EXPECT_NE(first.candidates.at(0), second.candidates.at(0));
    EXPECT_EQ(first.candidates.at(0).paths, second.candidates.at(0).paths);
}

TEST_F(ScanOutcome, ChangesNothingInTheHome)
{
    home.file("Sites/web/node_modules/deep/er/x");
    home.file("Downloads/old.zip");
    home.file("Documents/x/y");
    home.file(".cache/x");
    home.link("Sites/web/link", "node_modules");
    home.file("Sites/localhost/shop/x");
    home.file("Sites/localhost/shop copy/x");
    const auto before = home.inventory();
    scanned();
    EXPECT_EQ(home.inventory(), before);
}

TEST_F(ScanOutcome, OfAHomeWhoseFoldersAreNoFoldersIsEmpty)
{
    using Make = std::function<void(const TemporaryHome &, const char *)>;
    const QList<Make> oddities{
        [](const TemporaryHome &place, const char *path) { place.file(path, 0); },
        [](const TemporaryHome &place, const char *path) { place.link(path, "nowhere"); },
        [](const TemporaryHome &place, const char *path) { place.link(path, FilePath(path).split('/').last()); },
        [](const TemporaryHome &place, const char *path) {
            const FilePath fifo = place.file(path, 0);
            EXPECT_EQ(std::remove(fifo.constData()), 0);
            EXPECT_EQ(mkfifo(fifo.constData(), 0600), 0);
        },
    };
    for (qsizetype index = 0; index < oddities.size(); ++index) {
        const TemporaryHome odd;
        for (const char *path : {"Sites", "Library/Caches/pip", "Library/Caches/net.whatsapp.WhatsApp", ".cache",
                                 ".gradle/caches", "Downloads", "Desktop", "Documents", "Movies", "Pictures", "Music",
                                 "Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media"})
            oddities.at(index)(odd, path);
        ON_CALL(files, homeDirectoryForCurrentUser).WillByDefault(Return(odd.path()));
        EXPECT_THAT(scanned().candidates, IsEmpty()) << index;
    }
}

TEST_F(ScanOutcome, OfAHomeThatIsNoFolderIsEmpty)
{
    for (const FilePath &path : {home / "nowhere", home.file("file"), home.link("loop", "loop")}) {
        ON_CALL(files, homeDirectoryForCurrentUser).WillByDefault(Return(path));
        EXPECT_THAT(scanned().candidates, IsEmpty()) << path.constData();
    }
}

TEST_F(ScanOutcome, OfAHomeThatCannotBeReadAtAllIsEmpty)
{
    home.file("Sites/web/node_modules/x");
    home.file(".cache/x");
    ON_CALL(files, fileExists).WillByDefault(Return(false));
    ON_CALL(files, contentsOfDirectory).WillByDefault(Return(std::nullopt));
    ON_CALL(files, enumerate).WillByDefault(Return(QList<CollectedItem>()));
    ON_CALL(files, volumeCapacity).WillByDefault(Return(std::nullopt));
    ON_CALL(files, fileSystemAttributes).WillByDefault(Return(std::nullopt));
    EXPECT_EQ(scanned(), ScanSnapshot());
}

} // namespace tidlo
