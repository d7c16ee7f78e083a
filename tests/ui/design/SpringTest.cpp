#include "ui/design/Motion.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <numbers>

namespace tidlo {

namespace {

struct Movement
{
    double position = 0;
    double velocity = 0;
};

/// The change of a mass of 1 on the spring, from the laws of motion alone.
Movement changeOf(const Spring &spring, const Movement &now)
{
    using std::numbers::pi;
    const double stiffness = std::pow(2 * pi / spring.response, 2);
    const double damping = 4 * pi * spring.dampingFraction / spring.response;
    return {now.velocity, stiffness * (1 - now.position) - damping * now.velocity};
}

Movement after(const Movement &now, const Movement &change, double seconds)
{
    return {now.position + change.position * seconds, now.velocity + change.velocity * seconds};
}

/// One Runge-Kutta step.
Movement stepped(const Spring &spring, const Movement &now, double seconds)
{
    const Movement a = changeOf(spring, now);
    const Movement b = changeOf(spring, after(now, a, seconds / 2));
    const Movement c = changeOf(spring, after(now, b, seconds / 2));
    const Movement d = changeOf(spring, after(now, c, seconds));
    const Movement mean{(a.position + 2 * b.position + 2 * c.position + d.position) / 6,
                        (a.velocity + 2 * b.velocity + 2 * c.velocity + d.velocity) / 6};
    return after(now, mean, seconds);
}

class EverySpring : public testing::TestWithParam<Spring>
{};

constexpr std::array springs{
    Spring{.response = 0.24, .dampingFraction = 0.86}, Spring{.response = 0.8, .dampingFraction = 0.82},
    Spring{.response = 0.3, .dampingFraction = 0.8},   Spring{.response = 1, .dampingFraction = 0.1},
    Spring{.response = 0.5, .dampingFraction = 0.999}, Spring{.response = 0.5, .dampingFraction = 1},
    Spring{.response = 0.5, .dampingFraction = 1.001}, Spring{.response = 0.5, .dampingFraction = 3},
};

INSTANTIATE_TEST_SUITE_P(Spring, EverySpring, testing::ValuesIn(springs));

} // namespace

TEST_P(EverySpring, MovesAsTheLawsOfMotionSay)
{
    const Spring &spring = GetParam();
    constexpr double step = 1e-4;
    Movement motion;
    for (int i = 0; i <= 20'000; ++i) {
        ASSERT_NEAR(spring.position(i * step), motion.position, 1e-8) << "after " << i * step << " s";
        motion = stepped(spring, motion, step);
    }
}

TEST_P(EverySpring, BeginsAtRestAtZero)
{
    EXPECT_EQ(GetParam().position(0), 0);
    EXPECT_NEAR(GetParam().position(1e-6), 0, 1e-7);
}

TEST_P(EverySpring, StaysWithinAThousandthOfOneOnceItHasSettled)
{
    const Spring &spring = GetParam();
    const double settled = spring.settlingTime();
    for (int i = 0; i <= 1000; ++i)
        ASSERT_NEAR(spring.position(settled * (1 + i / 100.0)), 1, 0.001 + 1e-9);
}

TEST_P(EverySpring, HasNotSettledLongBefore)
{
    const Spring &spring = GetParam();
    double furthest = 0;
    for (double share = 0.7; share < 1; share += 0.001)
        furthest = std::max(furthest, std::abs(1 - spring.position(share * spring.settlingTime())));
    EXPECT_GT(furthest, 0.001);
}

TEST(Spring, SwingsOverOnlyBelowCriticalDamping)
{
    const auto highest = [](const Spring &spring) {
        double position = 0;
        for (int i = 0; i < 5000; ++i)
            position = std::max(position, spring.position(i / 1000.0));
        return position;
    };

    EXPECT_GT(highest({.response = 0.5, .dampingFraction = 0.8}), 1.01);
    EXPECT_LE(highest({.response = 0.5, .dampingFraction = 1}), 1);
    EXPECT_LE(highest({.response = 0.5, .dampingFraction = 2}), 1);
}

TEST(Spring, IsCriticallyDampedUnlessToldOtherwise)
{
    EXPECT_EQ(Spring{}.dampingFraction, 1);
}

TEST(Spring, TakesTwiceAsLongForTwiceTheResponse)
{
    const Spring quick{.response = 0.4, .dampingFraction = 0.7};
    const Spring slow{.response = 0.8, .dampingFraction = 0.7};
    EXPECT_DOUBLE_EQ(slow.settlingTime(), 2 * quick.settlingTime());
    EXPECT_DOUBLE_EQ(slow.position(0.3), quick.position(0.15));
}

} // namespace tidlo
