#include "ui/design/Contrast.h"

#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace tidlo {

namespace {

const QColor lightest(Qt::white);
const QColor darkest(Qt::black);

Grounds on(const QColor &surface, double ownTint = 0)
{
    return {.surfaces = {surface}, .ownTint = ownTint};
}

} // namespace

TEST(Contrast, IsFromOneToTwentyOneWhicheverIsNamedFirst)
{
    EXPECT_NEAR(contrastBetween(lightest, darkest), 21, 1e-6);
    EXPECT_NEAR(contrastBetween(darkest, lightest), 21, 1e-6);
    EXPECT_NEAR(contrastBetween(lightest, lightest), 1, 1e-6);
    EXPECT_NEAR(contrastBetween(QColor(0x76, 0x76, 0x76), lightest), 4.54, 0.01);
    EXPECT_NEAR(contrastBetween(QColor(0xff, 0, 0), lightest), 4.0, 0.01);
}

TEST(Contrast, OfATranslucentColorIsThatOfTheBlendedColor)
{
    EXPECT_EQ(laidOver(QColor(0, 0, 0, 0), lightest), lightest);
    EXPECT_NEAR(laidOver(QColor::fromRgbF(0, 0, 0, 0.5F), lightest).redF(), 0.5, 1e-4);
    EXPECT_NEAR(leastContrast(QColor::fromRgbF(0, 0, 0, 0.5F), on(lightest)), 3.95, 0.03);
}

TEST(Contrast, IsTheLeastOnAnyGroundAndOnATintOfItsOwn)
{
    const QColor gray(0x76, 0x76, 0x76);
    EXPECT_NEAR(leastContrast(gray, {.surfaces = {lightest, darkest}}), 4.54, 0.01);
    EXPECT_LT(leastContrast(gray, on(lightest, 0.2)), 4);
}

TEST(Contrast, OfAColorWithEnoughContrastStaysAsItIs)
{
    EXPECT_EQ(withContrast(darkest, on(lightest, 0.2), 4.5), darkest);
}

TEST(Contrast, IsReachedByTheLeastChangeOfLightnessAlone)
{
    const QColor blue = QColor::fromRgbF(0.388F, 0.682F, 0.718F);
    for (const QColor &surface : {lightest, QColor(224, 237, 240), QColor(200, 200, 200)}) {
        const QColor darker = withContrast(blue, on(surface, 0.2), 4.5);
        EXPECT_NEAR(darker.hslHueF(), blue.hslHueF(), 0.01);
        EXPECT_NEAR(darker.hslSaturationF(), blue.hslSaturationF(), 0.01);
        EXPECT_LT(darker.lightnessF(), blue.lightnessF());
        EXPECT_GE(leastContrast(darker, on(surface, 0.2)), 4.5);
        EXPECT_LT(leastContrast(darker, on(surface, 0.2)), 4.6);
    }
    EXPECT_GT(withContrast(QColor(60, 70, 80), on(darkest), 4.5).lightnessF(), QColor(60, 70, 80).lightnessF());
}

TEST(Contrast, OfATranslucentColorIsReachedByItsOpacityFirst)
{
    const QColor enough = withContrast(QColor::fromRgbF(0, 0, 0, 0.5F), on(lightest), 4.5);
    EXPECT_EQ(enough.lightnessF(), 0);
    EXPECT_GT(enough.alphaF(), 0.5F);
    EXPECT_LT(enough.alphaF(), 0.6F);
    EXPECT_GE(leastContrast(enough, on(lightest)), 4.5);
    const QColor opaque = withContrast(QColor::fromRgbF(0.8F, 0.8F, 0.8F, 0.5F), on(lightest), 4.5);
    EXPECT_EQ(opaque.alphaF(), 1);
    EXPECT_GE(leastContrast(opaque, on(lightest)), 4.5);
}

TEST(Contrast, ThatCannotBeReachedIsTheBestThatCanBe)
{
    EXPECT_EQ(withContrast(QColor(10, 10, 10), on(QColor(128, 128, 128)), 21), darkest);
}

} // namespace tidlo
