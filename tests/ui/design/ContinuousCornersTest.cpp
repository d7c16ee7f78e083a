#include "ui/design/ContinuousRectangle.h"

#include <QTransform>

#include <gmock/gmock.h>

#include <array>

namespace tidlo {

namespace {

constexpr double reach = 1.528665; ///< How far a corner reaches along its edges, for a radius of 1.

struct Station
{
    double x;
    double y;
};

// From the upper edge to the left one, for a radius of 1.
constexpr std::array stations{
    Station{reach, 0},
    Station{1.08849296, 0},
    Station{0.86840694, 0},
    Station{0.63149399, 0.07491100},
    Station{0.37282392, 0.16905899},
    Station{0.16905899, 0.37282392},
    Station{0.07491100, 0.63149399},
    Station{0, 0.86840694},
    Station{0, 1.08849296},
    Station{0, reach},
};

constexpr QRectF oblong{10, 20, 200, 100};

void expectSame(const QPainterPath &some, const QPainterPath &others)
{
    const QPainterPath difference = some.subtracted(others) + others.subtracted(some);
    EXPECT_LT(difference.boundingRect().width() * difference.boundingRect().height(), 1e-6);
}

/// Whether a point is inside, at this distance from each of the four corners.
std::array<bool, 4> insideFromCorners(const QPainterPath &path, const QRectF &rectangle, double distance)
{
    return {path.contains(rectangle.topLeft() + QPointF(distance, distance)),
            path.contains(rectangle.topRight() + QPointF(-distance, distance)),
            path.contains(rectangle.bottomRight() + QPointF(-distance, -distance)),
            path.contains(rectangle.bottomLeft() + QPointF(distance, -distance))};
}

} // namespace

TEST(ContinuousCorners, EachCornerPassesTheMeasuredStations)
{
    const double radius = 10;
    const QPainterPath path = continuousRectangle(oblong, radius);
    for (size_t i = 0; i < stations.size(); ++i) {
        const QPainterPath::Element element = path.elementAt(static_cast<int>(i) + 1); // The first one begins inside
                                                                                       // the edge.
        EXPECT_NEAR(element.x, oblong.left() + stations[i].x * radius, 1e-9) << i;
        EXPECT_NEAR(element.y, oblong.top() + stations[i].y * radius, 1e-9) << i;
    }
}

TEST(ContinuousCorners, AllFourCornersAreAlike)
{
    const QPainterPath path = continuousRectangle(oblong, 10);
    const QPointF centre = oblong.center();
    const QTransform toCentre = QTransform::fromTranslate(-centre.x(), -centre.y());
    const QTransform back = QTransform::fromTranslate(centre.x(), centre.y());

    for (const QTransform &mirror : {QTransform::fromScale(-1, 1), QTransform::fromScale(1, -1)}) {
        const QPainterPath mirrored = (toCentre * mirror * back).map(path);
        for (int i = 1; i < path.elementCount() - 1; ++i) { // The path begins and ends inside an edge.
            const QPointF point = path.elementAt(i);
            bool isFound = false;
            for (int j = 0; j < mirrored.elementCount(); ++j)
                isFound |= (QPointF(mirrored.elementAt(j)) - point).manhattanLength() < 1e-9;
            EXPECT_TRUE(isFound) << point.x() << ", " << point.y();
        }
    }
}

TEST(ContinuousCorners, TheOutlineTouchesAllFourEdgesAndGoesNoFurther)
{
    const QRectF bounds = continuousRectangle(oblong, 10).boundingRect();
    EXPECT_NEAR(bounds.left(), oblong.left(), 1e-9);
    EXPECT_NEAR(bounds.top(), oblong.top(), 1e-9);
    EXPECT_NEAR(bounds.right(), oblong.right(), 1e-9);
    EXPECT_NEAR(bounds.bottom(), oblong.bottom(), 1e-9);
}

TEST(ContinuousCorners, CornersCutLessThanARoundOneWouldAtTheirMiddle)
{
    // The round corner is 0.293 radii from the point where the edges would meet.
    const QPainterPath path = continuousRectangle(oblong, 30);
    EXPECT_THAT(insideFromCorners(path, oblong, 30 * 0.25), testing::Each(false));
    EXPECT_THAT(insideFromCorners(path, oblong, 30 * 0.30), testing::Each(true));
}

TEST(ContinuousCorners, CornersAtAStraightEdgeAreSquare)
{
    using testing::ElementsAre;
    const auto at = [](Qt::Edges straight) {
        return insideFromCorners(continuousRectangle(oblong, 10, straight), oblong, 0.01);
    };
    EXPECT_THAT(at({}), ElementsAre(false, false, false, false));
    EXPECT_THAT(at(Qt::TopEdge), ElementsAre(true, true, false, false));
    EXPECT_THAT(at(Qt::RightEdge), ElementsAre(false, true, true, false));
    EXPECT_THAT(at(Qt::BottomEdge), ElementsAre(false, false, true, true));
    EXPECT_THAT(at(Qt::LeftEdge), ElementsAre(true, false, false, true));
    EXPECT_THAT(at(Qt::LeftEdge | Qt::BottomEdge), ElementsAre(true, false, true, true));
}

TEST(ContinuousCorners, ARadiusTooLargeForTheEdgesIsAsLargeAsTheyAllow)
{
    const double largest = oblong.height() / 2 / reach;
    expectSame(continuousRectangle(oblong, 60), continuousRectangle(oblong, largest));
    expectSame(continuousRectangle(oblong, 1e9), continuousRectangle(oblong, largest));
    EXPECT_TRUE(oblong.adjusted(-1e-9, -1e-9, 1e-9, 1e-9).contains(continuousRectangle(oblong, 60).boundingRect()));
}

TEST(ContinuousCorners, WithoutARadiusItIsTheRectangle)
{
    QPainterPath plain;
    plain.addRect(oblong);
    expectSame(continuousRectangle(oblong, 0), plain);
    expectSame(continuousRectangle(oblong, -5), plain);
    EXPECT_THAT(insideFromCorners(continuousRectangle(oblong, 0), oblong, 0.01), testing::Each(true));
}

TEST(ContinuousCorners, AnEmptyRectangleHasNoInside)
{
    EXPECT_TRUE(continuousRectangle({10, 20, 0, 0}, 10).boundingRect().isEmpty());
}

} // namespace tidlo
