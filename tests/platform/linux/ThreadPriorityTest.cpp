#include "platform/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include <sys/resource.h>

namespace tidlo {

namespace {

constexpr int most = 19;

/// The niceness of the calling thread; a higher value means a lower priority.
int niceness()
{
    return getpriority(PRIO_PROCESS, 0);
}

} // namespace

TEST(ThreadPriority, AThreadThatStandsBackDoesSoWithThoseItStartsAndNoOther)
{
    const int before = niceness();
    int ofThread = before;
    int ofStarted = before;

    std::thread([&] {
        standBack();
        ofThread = niceness();
        std::thread([&] { ofStarted = niceness(); }).join();
    }).join();

    EXPECT_EQ(ofThread, std::min(before + 10, most));
    EXPECT_EQ(ofStarted, ofThread);
    EXPECT_EQ(niceness(), before);
}

TEST(ThreadPriority, AThreadStandsBackFromWhereItWasStartedAndOnlyOnce)
{
    for (int start = niceness(); start <= most; ++start) {
        int once = 0;
        int again = 0;
        std::thread([&] {
            ASSERT_EQ(setpriority(PRIO_PROCESS, 0, start), 0);
            standBack();
            once = niceness();
            standBack();
            again = niceness();
        }).join();
        EXPECT_EQ(once, std::min(start + 10, most)) << start;
        EXPECT_EQ(again, once) << start;
    }
}

} // namespace tidlo
