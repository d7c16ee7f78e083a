#include "ui/design/Motion.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <limits>

namespace tidlo {

namespace {

struct NamedMotion
{
    const char *name;
    SpringMotion (Motion::*ofKind)() const;
    Spring spring;
};

constexpr std::array namedMotions{
    NamedMotion{"toggle", &Motion::toggle, {.response = 0.24, .dampingFraction = 0.86}},
    NamedMotion{"gauge", &Motion::gauge, {.response = 0.8, .dampingFraction = 0.82}},
    NamedMotion{"theme", &Motion::theme, {.response = 0.3, .dampingFraction = 0.8}},
};

class EveryMotion : public testing::TestWithParam<NamedMotion>
{
protected:
    SpringMotion motion() const { return (motions.*GetParam().ofKind)(); }

    Motion motions;
};

INSTANTIATE_TEST_SUITE_P(Motion, EveryMotion, testing::ValuesIn(namedMotions),
                         [](const auto &tested) { return tested.param.name; });

/// One coordinate of a cubic Bezier from 0 to 1.
double bezier(double first, double second, double share)
{
    const double rest = 1 - share;
    return 3 * rest * rest * share * first + 3 * rest * share * share * second + share * share * share;
}

/// The height of the curve with the control points (0.42, 0) and (0.58, 1) at \a x.
double gentle(double x)
{
    double low = 0;
    double high = 1;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2;
        (bezier(0.42, 0.58, middle) < x ? low : high) = middle;
    }
    return bezier(0, 1, low);
}

} // namespace

TEST_P(EveryMotion, LastsUntilItsSpringHasSettled)
{
    const Spring &spring = GetParam().spring;
    EXPECT_EQ(motion().duration, std::lround(spring.settlingTime() * 1000));
}

TEST_P(EveryMotion, MovesAsItsSpring)
{
    const Spring &spring = GetParam().spring;
    for (int i = 0; i < 100; ++i) {
        const double share = i / 100.0;
        EXPECT_DOUBLE_EQ(motion().easing.valueForProgress(share), spring.position(share * spring.settlingTime()));
    }
}

TEST_P(EveryMotion, BeginsAtZeroAndEndsAtExactlyOne)
{
    EXPECT_EQ(motion().easing.valueForProgress(0), 0);
    EXPECT_EQ(motion().easing.valueForProgress(1), 1);
}

TEST_P(EveryMotion, IsNoSpringAndShortWhereMotionIsReduced)
{
    motions.setReduced(true);
    EXPECT_LE(motion().duration, 100);
    for (int i = 0; i <= 100; ++i) {
        EXPECT_GE(motion().easing.valueForProgress(i / 100.0), 0);
        EXPECT_LE(motion().easing.valueForProgress(i / 100.0), 1);
    }
}

TEST(Motion, WhereItIsReducedOnlyColorsTakeTheirTime)
{
    Motion motions;
    motions.setReduced(true);
    EXPECT_EQ(motions.toggle().duration, 0);
    EXPECT_EQ(motions.gauge().duration, 0);
    EXPECT_EQ(motions.gaugeDelay(), 0);
    EXPECT_EQ(motions.theme().duration, 100);
    EXPECT_EQ(motions.longestFade(), 100);
}

TEST(Motion, IsNotReducedUnlessToldAndTellsEachChangeOnce)
{
    Motion motions;
    int changes = 0;
    QObject::connect(&motions, &Motion::changed, [&changes] { ++changes; });
    EXPECT_FALSE(motions.isReduced());
    EXPECT_EQ(motions.longestFade(), std::numeric_limits<int>::max());
    for (const bool isReduced : {false, true, true, false}) {
        motions.setReduced(isReduced);
        EXPECT_EQ(motions.isReduced(), isReduced);
    }
    EXPECT_EQ(changes, 2);
}

TEST(Motion, EaseInOutIsThePlatformsCurve)
{
    const QEasingCurve curve = Motion::easeInOut();
    for (int i = 0; i <= 20; ++i)
        EXPECT_NEAR(curve.valueForProgress(i / 20.0), gentle(i / 20.0), 0.001) << i / 20.0;
}

} // namespace tidlo
