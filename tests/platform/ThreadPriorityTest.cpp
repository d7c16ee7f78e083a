#include "platform/ThreadPriority.h"

#include <gtest/gtest.h>

#include <thread>

#include <sys/resource.h>

namespace {

/// Of the calling thread; the more, the more it stands back.
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

    EXPECT_GT(ofThread, before);
    EXPECT_EQ(ofStarted, ofThread);
    EXPECT_EQ(niceness(), before);
}
