#include "platform/QuitLimit.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

#include <sys/time.h>
#include <unistd.h>

namespace tidlo {

using namespace std::chrono_literals;

TEST(QuitLimitDeathTest, EndsAProcessThatWaitsForever)
{
    const auto waitForever = [] {
        QuitLimit limit;
        limit.begin(1ms, 7);
        while (true)
            pause();
    };
    EXPECT_EXIT(waitForever(), testing::ExitedWithCode(7), "");
}

TEST(QuitLimitDeathTest, EndsAProcessWhoseMainThreadWaitsForAnother)
{
    const auto waitForAThread = [] {
        QuitLimit limit;
        limit.begin(1ms, 0);
        std::thread([] {
            while (true)
                pause();
        }).join();
    };
    EXPECT_EXIT(waitForAThread(), testing::ExitedWithCode(0), "");
}

TEST(QuitLimit, LeavesAloneWhatEndsInTime)
{
    {
        QuitLimit limit;
        limit.begin(1h, 7);
    }
    itimerval timer = {};
    ASSERT_EQ(getitimer(ITIMER_REAL, &timer), 0);
    EXPECT_EQ(timer.it_value.tv_sec, 0);
    EXPECT_EQ(timer.it_value.tv_usec, 0);
}

} // namespace tidlo
