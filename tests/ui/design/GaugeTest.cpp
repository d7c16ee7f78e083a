#include "ui/design/Gauge.h"

#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>

#include <cmath>
#include <map>
#include <numbers>

namespace tidlo {

namespace {

constexpr int side = 200;
constexpr double lineWidth = 20;

using Values = std::map<const char *, QVariant>;

/// The picture of a gauge with these properties.
QImage drawn(const Values &values)
{
    Gauge gauge;
    gauge.setSize({side, side});
    gauge.setProperty("lineWidth", lineWidth);
    for (const auto &[name, value] : values)
        EXPECT_TRUE(gauge.setProperty(name, value)) << name;
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const QImage picture = gauge.picture(1);
    QPainter(&image).drawImage(gauge.placeOf(picture.deviceIndependentSize()), picture);
    return image;
}

/// The colour in the middle of the line, at this many degrees clockwise from three o'clock.
QColor colorAt(const QImage &image, double degrees)
{
    const double angle = degrees * std::numbers::pi / 180;
    const double radius = (side - lineWidth) / 2;
    return image.pixelColor(static_cast<int>(side / 2.0 + radius * std::cos(angle)),
                            static_cast<int>(side / 2.0 + radius * std::sin(angle)));
}

bool isInked(const QImage &image, double degrees)
{
    return colorAt(image, degrees).alpha() == 255;
}

bool isEmpty(const QImage &image, double degrees)
{
    return colorAt(image, degrees).alpha() == 0;
}

/// The number of whole degrees at which there is ink.
int inkedDegrees(const QImage &image)
{
    int count = 0;
    for (int degrees = 0; degrees < 360; ++degrees)
        count += isInked(image, degrees) ? 1 : 0;
    return count;
}

} // namespace

TEST(Gauge, BeginsAtThreeOClockAndRunsClockwise)
{
    const QImage image = drawn({{"to", 0.25}});
    EXPECT_TRUE(isEmpty(image, -3));
    EXPECT_TRUE(isInked(image, 3));
    EXPECT_TRUE(isInked(image, 45)); // Downwards on the screen.
    EXPECT_TRUE(isInked(image, 87));
    EXPECT_TRUE(isEmpty(image, 93));
    EXPECT_TRUE(isEmpty(image, 270));
}

TEST(Gauge, IsThePartBetweenItsEnds)
{
    const QImage image = drawn({{"from", 0.5}, {"to", 0.75}});
    EXPECT_TRUE(isEmpty(image, 177));
    EXPECT_TRUE(isInked(image, 183));
    EXPECT_TRUE(isInked(image, 267));
    EXPECT_TRUE(isEmpty(image, 273));
}

TEST(Gauge, IsTurnedWithItsColorsAndStaysAroundItsMiddle)
{
    const Values straight{{"to", 0.25}, {"color", QColor(Qt::red)}, {"bottomColor", QColor(Qt::blue)}};
    Values turned = straight;
    turned["turnedBy"] = 90;
    const QImage image = drawn(turned);
    EXPECT_TRUE(isEmpty(image, 87));
    EXPECT_TRUE(isInked(image, 93));
    EXPECT_TRUE(isInked(image, 177));
    EXPECT_TRUE(isEmpty(image, 183));
    EXPECT_NEAR(colorAt(image, 100).redF(), colorAt(drawn(straight), 10).redF(), 0.02);
}

TEST(Gauge, IsAWholeCircleUnlessToldOtherwise)
{
    EXPECT_EQ(inkedDegrees(drawn({})), 360);
}

TEST(Gauge, ItsLineIsAsWideAsToldAndStaysWithinTheItem)
{
    const QImage image = drawn({});
    const auto alphaAt = [&image](int x) { return image.pixelColor(x, side / 2).alpha(); };
    EXPECT_GE(alphaAt(0), 250);
    EXPECT_EQ(alphaAt(19), 255);
    EXPECT_EQ(alphaAt(21), 0);
    EXPECT_EQ(alphaAt(178), 0);
    EXPECT_EQ(alphaAt(180), 255);
    EXPECT_GE(alphaAt(199), 250);
}

TEST(Gauge, RoundCapsReachBeyondBothEnds)
{
    const Values quarter{{"to", 0.25}};
    Values round = quarter;
    round["roundCaps"] = true;

    EXPECT_FALSE(isInked(drawn(quarter), -4));
    EXPECT_TRUE(isInked(drawn(round), -4)); // Half the line's width is 6.4 degrees.
    EXPECT_TRUE(isInked(drawn(round), 94));
    EXPECT_TRUE(isEmpty(drawn(round), -8));
    EXPECT_TRUE(isEmpty(drawn(round), 98));
}

TEST(Gauge, HasOneColorWithoutASecond)
{
    const QImage image = drawn({{"color", QColor(10, 20, 30)}});
    EXPECT_EQ(colorAt(image, 0), QColor(10, 20, 30));
    EXPECT_EQ(colorAt(image, 180), QColor(10, 20, 30));
}

TEST(Gauge, GoesFromTheFirstColorAtTheTopRightToTheSecondAtTheBottomLeft)
{
    const QImage image = drawn({{"color", QColor(Qt::red)}, {"bottomColor", QColor(Qt::blue)}});

    // The line's middle is 90 points from the centre, and the corners of the gradient are 90 * sqrt 2.
    const double shareAtTopRight = (1 - 1 / std::numbers::sqrt2) / 2;
    EXPECT_NEAR(colorAt(image, -45).blueF(), shareAtTopRight, 0.02);
    EXPECT_NEAR(colorAt(image, -45).redF(), 1 - shareAtTopRight, 0.02);
    EXPECT_NEAR(colorAt(image, 135).blueF(), 1 - shareAtTopRight, 0.02);
    EXPECT_NEAR(colorAt(image, 45).blueF(), 0.5, 0.02);
    EXPECT_NEAR(colorAt(image, 225).blueF(), 0.5, 0.02);
}

TEST(Gauge, EndsBeyondTheCircleAreThoseOfTheCircle)
{
    EXPECT_EQ(drawn({{"to", 1.7}}), drawn({{"to", 1}}));
    EXPECT_EQ(drawn({{"from", -3}, {"to", 0.3}}), drawn({{"to", 0.3}}));
}

TEST(Gauge, AnEndBeforeTheBeginningDrawsNothing)
{
    EXPECT_EQ(inkedDegrees(drawn({{"from", 0.5}, {"to", 0.2}})), 0);
    EXPECT_EQ(inkedDegrees(drawn({{"to", -1}})), 0);
}

TEST(Gauge, AStubOfTwoHundredthsIsSeen)
{
    const QImage image = drawn({{"to", 0.02}, {"roundCaps", true}});
    EXPECT_TRUE(isInked(image, 0));
    EXPECT_TRUE(isInked(image, 7));
    EXPECT_TRUE(isEmpty(image, 20));
}

TEST(Gauge, ItsPictureIsNoLargerThanItsLineNeeds)
{
    Gauge gauge;
    gauge.setSize({side, side});
    gauge.setProperty("lineWidth", lineWidth);
    gauge.setProperty("to", 0.25);

    EXPECT_EQ(gauge.inkedRect(), QRect(QPoint(89, 89), QPoint(200, 200))); // The lower right quarter, and its edges.
    EXPECT_EQ(gauge.picture(1).size(), gauge.inkedRect().size());
    EXPECT_EQ(gauge.picture(2).size(), 2 * gauge.inkedRect().size());
}

} // namespace tidlo
