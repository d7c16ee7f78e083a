#include "OwnMounts.h"

#include "support/InChild.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iostream>

#include <sys/mount.h>

void inOwnMounts(const std::function<void()> &work)
{
    const std::string forbidden = "The kernel forbids mounts here";
    const ChildResult result = inChild([&] {
        if (!enterMountNamespace()) {
            std::cout << forbidden << std::endl;
            return false;
        }
        work();
        std::cout << std::flush;
        return !testing::Test::HasFailure();
    });
    if (result.output.find(forbidden) != std::string::npos)
        GTEST_SKIP() << forbidden << ", so nothing was proved about them.";
    std::cout << result.output;
    EXPECT_TRUE(result.succeeded);
}

void mountMemory(const FilePath &folder, const char *options)
{
    ASSERT_EQ(mount("memory", folder.constData(), "tmpfs", 0, options), 0) << std::strerror(errno);
}
