#include "scanner/FindingRules.h"
#include "scanner/RuleTest.h"

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

const FilePath container = "Library/Group Containers/group.net.whatsapp.WhatsApp.shared";
const FilePath mediaFolder = container + "/Message/Media";
const FilePath cacheFolder = "Library/Caches/net.whatsapp.WhatsApp";

class WhatsAppRules : public RuleTest
{
protected:
    QList<CleanupCandidate> candidates() const { return candidatesOf(whatsAppCandidates({files, home.path()})); }
};

} // namespace

TEST_F(WhatsAppRules, GiveMediaUnselectedAndCachesSelected)
{
    const qint64 media = onDisk(home.file(mediaFolder + "/1/photo.jpg", 20'000));
    const qint64 cache = onDisk(home.file(cacheFolder + "/log", 5'000));
    ASSERT_THAT(candidates(), SizeIs(2));

    const CleanupCandidate first = candidates().at(0);
    expectFixedFields(first, {"WhatsApp / Chat Media & Attachments",
                              "Chat photos, videos, and media files. Unchecked by default; check manually if you want "
                              "to clear media to free space.",
                              CleanupCategory::whatsApp, CleanupRisk::review, false});
    EXPECT_THAT(first.paths, ElementsAre(home / mediaFolder));
    EXPECT_EQ(first.bytes, media);

    const CleanupCandidate second = candidates().at(1);
    expectFixedFields(second, {"WhatsApp / Temporary App Caches",
                               "App UI caches, logs, and temporary web previews. Safe to clean without losing chat "
                               "media.",
                               CleanupCategory::whatsApp, CleanupRisk::safe, true});
    EXPECT_THAT(second.paths, ElementsAre(home / cacheFolder));
    EXPECT_EQ(second.bytes, cache);
}

TEST_F(WhatsAppRules, GiveEmptyMediaAloneWhenWhatsAppIsNotInstalled)
{
    ASSERT_THAT(candidates(), SizeIs(1));
    EXPECT_THAT(candidates().at(0).paths, IsEmpty());
    EXPECT_EQ(candidates().at(0).bytes, 0);
    EXPECT_FALSE(candidates().at(0).selected);
}

TEST_F(WhatsAppRules, GiveNoCachesThatTakeNoRoom)
{
    home.folder(cacheFolder + "/empty");
    home.folder(mediaFolder);
    ASSERT_THAT(candidates(), SizeIs(1));
    EXPECT_THAT(candidates().at(0).paths, ElementsAre(home / mediaFolder));
}

TEST_F(WhatsAppRules, GiveCachesWithoutMedia)
{
    home.file(cacheFolder + "/log");
    ASSERT_THAT(candidates(), SizeIs(2));
    EXPECT_THAT(candidates().at(0).paths, IsEmpty());
    EXPECT_THAT(candidates().at(1).paths, ElementsAre(home / cacheFolder));
}

TEST_F(WhatsAppRules, NeverListTheChats)
{
    home.file(container + "/ChatStorage.sqlite", 10'000);
    home.file(container + "/Message/other", 10'000);
    ASSERT_THAT(candidates(), SizeIs(1));
    EXPECT_THAT(candidates().at(0).paths, IsEmpty());
    EXPECT_EQ(candidates().at(0).bytes, 0);
}

TEST_F(WhatsAppRules, TakeAFileWhereTheFolderShouldBeAsItIs)
{
    const qint64 bytes = onDisk(home.file(cacheFolder, 3'000));
    ASSERT_THAT(candidates(), SizeIs(2));
    EXPECT_EQ(candidates().at(1).bytes, bytes);
}

TEST_F(WhatsAppRules, CountNothingBehindALink)
{
    home.file("elsewhere/photo.jpg", 20'000);
    home.link(mediaFolder, home / "elsewhere");
    home.link(cacheFolder, "nowhere");
    ASSERT_THAT(candidates(), SizeIs(1));
    EXPECT_THAT(candidates().at(0).paths, ElementsAre(home / mediaFolder));
    EXPECT_EQ(candidates().at(0).bytes, 0);
}

TEST_F(WhatsAppRules, CountNothingOfAFolderThatCannotBeRead)
{
    home.file(cacheFolder + "/log");
    EXPECT_THAT(candidates(), SizeIs(2));
    withoutAccessTo(home / cacheFolder, [this] { EXPECT_THAT(candidates(), SizeIs(1)); });
}

} // namespace tidlo
