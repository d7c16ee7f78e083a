#include "ui/design/ContinuousRectangle.h"

#include <QImage>
#include <QPainter>
#include <QQuickWindow>

#include <gmock/gmock.h>

#include <map>

namespace tidlo {

namespace {

constexpr int width = 120;
constexpr int height = 80;
const QColor fill(10, 200, 30);
const QColor line(200, 10, 30);

using Values = std::map<const char *, QVariant>;

void give(ContinuousRectangle &rectangle, const Values &values)
{
    for (const auto &[name, value] : values)
        EXPECT_TRUE(rectangle.setProperty(name, value)) << name;
}

/// The picture of a rectangle with a fill and these properties.
QImage painted(const Values &values)
{
    ContinuousRectangle rectangle;
    rectangle.setSize({width, height});
    give(rectangle, {{"color", fill}});
    give(rectangle, values);
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    rectangle.paint(&painter);
    return image;
}

/// The colours from the middle of the left edge inwards.
std::vector<QColor> fromTheLeft(const QImage &image, int count)
{
    std::vector<QColor> colors;
    for (int x = 0; x < count; ++x)
        colors.push_back(image.pixelColor(x, height / 2));
    return colors;
}

const QColor nothing(0, 0, 0, 0);

} // namespace

using testing::Each;
using testing::ElementsAre;

TEST(ContinuousRectangle, FillsAllOfItselfButItsCorners)
{
    const QImage image = painted({{"radius", 20}});

    EXPECT_THAT(fromTheLeft(image, width), Each(fill));
    EXPECT_EQ(image.pixelColor(width / 2, 0), fill);
    EXPECT_EQ(image.pixelColor(width / 2, height - 1), fill);
    for (const QPoint corner :
         {QPoint(0, 0), QPoint(width - 1, 0), QPoint(0, height - 1), QPoint(width - 1, height - 1)})
        EXPECT_EQ(image.pixelColor(corner), nothing) << corner.x() << ", " << corner.y();
}

TEST(ContinuousRectangle, FillsItsCornersWithoutARadiusAndAtAStraightEdge)
{
    EXPECT_EQ(painted({}).pixelColor(0, 0), fill);
    const QImage image = painted({{"radius", 20}, {"straightEdges", QVariant::fromValue(Qt::Edges(Qt::LeftEdge))}});
    EXPECT_EQ(image.pixelColor(0, 0), fill);
    EXPECT_EQ(image.pixelColor(0, height - 1), fill);
    EXPECT_EQ(image.pixelColor(width - 1, 0), nothing);
}

TEST(ContinuousRectangle, ItsLineIsAsWideAsToldAndLiesWithinItsEdge)
{
    const Values lined{{"radius", 20}, {"borderColor", line}, {"borderWidth", 3}};
    const QImage image = painted(lined);

    EXPECT_THAT(fromTheLeft(image, 5), ElementsAre(line, line, line, fill, fill));
    EXPECT_EQ(image.pixelColor(width / 2, 2), line);
    EXPECT_EQ(image.pixelColor(width / 2, 3), fill);
    EXPECT_EQ(image.pixelColor(width - 1, height / 2), line);
    EXPECT_EQ(image.pixelColor(width / 2, height - 1), line);

    const QImage unlined = painted({{"radius", 20}});
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            ASSERT_TRUE(unlined.pixelColor(x, y).alpha() > 0 || image.pixelColor(x, y).alpha() == 0) << x << ", " << y;
    }
}

TEST(ContinuousRectangle, HasNoLineWithoutAWidthOrAColor)
{
    const QImage unlined = painted({{"radius", 20}});
    EXPECT_EQ(painted({{"radius", 20}, {"borderColor", line}}), unlined);
    EXPECT_EQ(painted({{"radius", 20}, {"borderColor", line}, {"borderWidth", -1}}), unlined);
    EXPECT_EQ(painted({{"radius", 20}, {"borderWidth", 3}}), unlined);
}

TEST(ContinuousRectangle, IsPaintedAnewWhenItsLooksChange)
{
    QQuickWindow window;
    window.resize(width, height);
    ContinuousRectangle rectangle(window.contentItem());
    rectangle.setSize({width, height});
    give(rectangle, {{"color", fill}});
    window.show();
    ASSERT_EQ(window.grabWindow().pixelColor(1, height / 2), fill);

    give(rectangle, {{"color", line}});
    EXPECT_EQ(window.grabWindow().pixelColor(1, height / 2), line);
    give(rectangle, {{"borderColor", fill}});
    give(rectangle, {{"borderWidth", 3}});
    EXPECT_EQ(window.grabWindow().pixelColor(1, height / 2), fill);
}

} // namespace tidlo
