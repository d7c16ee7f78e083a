#include "platform/QuitLimit.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <future>
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

TEST(QuitLimitDeathTest, EndsAProcessWhoseLeftThreadTheSystemHolds)
{
    const auto leaveAThread = [] {
        QuitLimit limit;
        limit.begin(1ms, 7);
        leaveToSystem(std::thread([] {
            while (true)
                pause();
        }));
    };
    EXPECT_EXIT(leaveAThread(), testing::ExitedWithCode(7), "");
}

TEST(QuitLimit, WaitsForAThreadThatWasLeft)
{
    bool hasEnded = false; // The thread sanitizer reports it if the thread was not waited for.
    std::promise<void> gate;
    leaveToSystem(std::thread([&] {
        gate.get_future().wait();
        hasEnded = true;
    }));
    {
        QuitLimit limit;
        limit.begin(1h, 7);
        gate.set_value();
    }
    EXPECT_TRUE(hasEnded);
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
