#include "proxy/RateLimiter.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace tidlo::proxy {
namespace {

constexpr RateLimiter::Time start(1'000h);

} // namespace

TEST(RateLimiter, LetsADeviceAskTenTimesInAnyMinute)
{
    RateLimiter limiter(10);
    for (int request = 0; request < 10; ++request)
        EXPECT_EQ(limiter.admit("A", start + request * 1s), 0s);

    EXPECT_EQ(limiter.admit("A", start + 10s), 50s);
    EXPECT_EQ(limiter.admit("A", start + 59'001ms), 1s);
    EXPECT_EQ(limiter.admit("A", start + 60s), 0s);
    EXPECT_EQ(limiter.admit("A", start + 60s), 1s);
    EXPECT_EQ(limiter.admit("A", start + 61s), 0s);
}

TEST(RateLimiter, CountsEachDeviceByItself)
{
    RateLimiter limiter(1);
    EXPECT_EQ(limiter.admit("A", start), 0s);
    EXPECT_EQ(limiter.admit("B", start), 0s);
    EXPECT_EQ(limiter.admit("A", start), 60s);
    EXPECT_EQ(limiter.admit("a", start), 0s);
}

TEST(RateLimiter, DoesNotCountWhatItTurnsDown)
{
    RateLimiter limiter(1);
    EXPECT_EQ(limiter.admit("A", start), 0s);
    for (int request = 0; request < 100; ++request)
        EXPECT_EQ(limiter.admit("A", start + 30s), 30s);
    EXPECT_EQ(limiter.admit("A", start + 60s), 0s);
}

TEST(RateLimiter, WithoutALimitLetsEveryoneAsk)
{
    RateLimiter limiter(0, 0);
    for (int request = 0; request < 1'000; ++request)
        EXPECT_EQ(limiter.admit("A", start), 0s);
}

TEST(RateLimiter, RemembersADeviceThatGoesOnAskingThoughItCameFirst)
{
    RateLimiter limiter(2, 2);
    for (const char *device : {"A", "B", "A", "C"})
        EXPECT_EQ(limiter.admit(device, start), 0s) << device;
    EXPECT_EQ(limiter.admit("A", start), 60s);
}

TEST(RateLimiter, ForgetsTheDeviceThatHasNotAskedForLongestWhenItRemembersTooMany)
{
    RateLimiter limiter(1, 3);
    for (const char *device : {"A", "B", "C", "D"})
        EXPECT_EQ(limiter.admit(device, start), 0s) << device << ", since new ones are not shut out";

    for (const char *device : {"B", "C", "D"})
        EXPECT_EQ(limiter.admit(device, start), 60s) << device;
    EXPECT_EQ(limiter.admit("A", start), 0s) << "it was forgotten";
}

} // namespace tidlo::proxy
