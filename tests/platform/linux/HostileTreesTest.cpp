// Trees that exist only on Linux: with other mounts in them, or on a kernel that lacks a system call.

#include "platform/Allocation.h"
#include "platform/Descriptor.h"
#include "support/DeepTree.h"
#include "support/InChild.h"
#include "support/OwnMounts.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/syscall.h>

namespace tidlo {

namespace {

qsizetype targetsBeneath(const FilePath &root)
{
    const auto visit = [](const EnumeratedEntry &entry) {
        return entry.name() == "target" ? Visit{Visit::Action::collect} : Visit{};
    };
    return DirectoryWalker().enumerate({.roots = {root}, .visit = visit}, {}).size();
}

} // namespace

TEST(HostileTreesOfLinux, OtherMountsAreNotEntered)
{
    const TemporaryHome home;
    home.file("tree/file", block);
    home.folder("tree/tmpfs");
    home.folder("tree/bound");
    home.file("tree/bound-file", 0);
    home.file("outside/target/file", 5 * block);
    const auto bind = [&](const char *item, const char *point) {
        ASSERT_EQ(mount((home / item).constData(), (home / point).constData(), nullptr, MS_BIND, nullptr), 0);
    };
    for (const bool hasOpenat2 : {true, false}) {
        inOwnMounts([&] {
            mountMemory(home / "tree/tmpfs");
            bind("outside", "tree/bound");
            bind("outside/target/file", "tree/bound-file");
            home.file("tree/tmpfs/target/file", 9 * block);
            EXPECT_TRUE(hasOpenat2 || denySystemCall(SYS_openat2, ENOSYS));

            EXPECT_EQ(sizeOf(home / "tree"), block);
            EXPECT_EQ(targetsBeneath(home / "tree"), 0);
        });
    }
}

TEST(HostileTreesOfLinux, AKernelWithoutOpenat2CountsTheSame)
{
    const TemporaryHome home;
    makeChain(home.folder("comb"), "d", 400, [](int folder, int) {
        makeFile(folder, "file", block);
        makeFolder(folder, "tooth");
        const Descriptor tooth(openat(folder, "tooth", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        makeFile(tooth.get(), "file", block);
    });
    home.file("outside/huge", 100 * block);
    home.link("comb/link", home / "outside");
    for (const int error : {ENOSYS, EPERM}) {
        const ChildResult result = inChild([&] {
            EXPECT_TRUE(limitDescriptors(64) && denySystemCall(SYS_openat2, error));
            EXPECT_EQ(sizeOf(home / "comb"), 2 * 401 * block);
            return !testing::Test::HasFailure();
        });
        EXPECT_TRUE(result.succeeded) << result.output;
    }
}

} // namespace tidlo
