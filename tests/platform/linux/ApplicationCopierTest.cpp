#include "platform/ApplicationCopier.h"

#include "support/InChild.h"
#include "support/OwnMounts.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <cstring>

#include <sys/mount.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tidlo {

namespace {

class ApplicationCopierOnLinux : public testing::Test
{
protected:
    ApplicationCopierOnLinux()
    {
        home.file("from/Tidlo.app/Contents/large", 200'000);
        home.folder("Applications");
    }

    static std::optional<QString> because(int error) { return QString::fromLocal8Bit(std::strerror(error)); }

    /// All properties except the access time.
    std::map<std::string, TemporaryHome::Entry> inApplications() const
    {
        std::map<std::string, TemporaryHome::Entry> entries;
        for (auto [name, entry] : home.inventory()) {
            entry.accessed = {};
            if (name.starts_with("Applications/"))
                entries.emplace(name, entry);
        }
        return entries;
    }

    TemporaryHome home;
    const FilePath source = home / "from/Tidlo.app";
    const FilePath destination = home / "Applications/Tidlo.app";
};

} // namespace

TEST_F(ApplicationCopierOnLinux, LeavesWhatWasThereWholeWhenTheSourceVanishesHalfWay)
{
    home.file("Applications/Tidlo.app/old");
    const auto former = inApplications();
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(denySystemCall(SYS_sendfile, ESTALE)); // The folders are made by then.
        EXPECT_EQ(copyApplication(source, destination), because(ESTALE));
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_EQ(inApplications(), former);
}

TEST_F(ApplicationCopierOnLinux, LeavesWhatWasThereWholeWhenThereIsNoRoom)
{
    inOwnMounts([&] {
        mountMemory(home / "Applications", "size=128k");
        EXPECT_EQ(copyApplication(source, destination), because(ENOSPC));
        EXPECT_TRUE(inApplications().empty());

        home.file("Applications/Tidlo.app/old", 8'192);
        const auto former = inApplications();
        EXPECT_EQ(copyApplication(source, destination), because(ENOSPC));
        EXPECT_EQ(inApplications(), former);
    });
}

TEST_F(ApplicationCopierOnLinux, RefusesToReplaceWhereAVolumeIsMounted)
{
    home.folder("Applications/Tidlo.app/Contents/inner");
    home.file("volume/kept");
    for (const char *point : {"Applications/Tidlo.app/Contents/inner", "Applications/Tidlo.app"}) {
        inOwnMounts([&] {
            SCOPED_TRACE(point);
            ASSERT_EQ(mount((home / "volume").constData(), (home / point).constData(), nullptr, MS_BIND, nullptr), 0);

            EXPECT_EQ(copyApplication(source, destination), because(EBUSY));

            EXPECT_EQ(access((home / point + "/kept").constData(), F_OK), 0);
        });
    }
    EXPECT_TRUE(inApplications().contains("Applications/Tidlo.app/Contents/inner"));
}

} // namespace tidlo
