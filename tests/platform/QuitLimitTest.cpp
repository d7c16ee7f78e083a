#include "platform/QuitLimit.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

#include <unistd.h>

using namespace std::chrono_literals;

TEST(QuitLimitDeathTest, EndsAProcessThatWaitsForever)
{
    const auto waitForever = [] {
        endAfter(1ms, 7);
        while (true)
            pause();
    };
    EXPECT_EXIT(waitForever(), testing::ExitedWithCode(7), "");
}

TEST(QuitLimitDeathTest, EndsAProcessWhoseMainThreadWaitsForAnother)
{
    const auto waitForAThread = [] {
        endAfter(1ms, 0);
        std::thread([] {
            while (true)
                pause();
        }).join();
    };
    EXPECT_EXIT(waitForAThread(), testing::ExitedWithCode(0), "");
}

TEST(QuitLimitDeathTest, LeavesAProcessThatEndsInTimeToItsOwnWay)
{
    const auto endAtOnce = [] {
        std::atexit([] { std::_Exit(3); }); // What ends at the limit runs none of these.
        endAfter(1h, 7);
        std::exit(0);
    };
    EXPECT_EXIT(endAtOnce(), testing::ExitedWithCode(3), "");
}
