#include "support/OwnMounts.h"

#include "support/InChild.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iostream>

#include <sys/mount.h>

namespace tidlo {

void inOwnMounts(const std::function<void()> &work)
{
    const std::string skipped = "(skipped)";
    const ChildResult result = inChild([&] {
        const bool isAllowed = enterMountNamespace();
        if (isAllowed)
            work();
        else
            std::cout << "The kernel forbids mounts here, so nothing was proved about them. ";
        std::cout << (isAllowed && !testing::Test::IsSkipped() ? "" : skipped) << std::flush;
        return !testing::Test::HasFailure();
    });
    if (result.output.find(skipped) != std::string::npos)
        GTEST_SKIP() << result.output;
    std::cout << result.output;
    EXPECT_TRUE(result.succeeded);
}

void mountMemory(const FilePath &folder, const char *options)
{
    ASSERT_EQ(mount("memory", folder.constData(), "tmpfs", 0, options), 0) << std::strerror(errno);
}

} // namespace tidlo
