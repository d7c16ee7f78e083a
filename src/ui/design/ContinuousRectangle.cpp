#include "ui/design/ContinuousRectangle.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

constexpr double reach = 1.528665;

/// The corner at the top left of the square that \a place maps, with a radius of 1 there, from the upper edge to the
/// left one.
void addRoundCorner(QPainterPath &path, const QTransform &place)
{
    const auto at = [&place](double x, double y) { return place.map(QPointF(x, y)); };
    path.lineTo(at(reach, 0));
    path.cubicTo(at(1.08849296, 0), at(0.86840694, 0), at(0.63149399, 0.07491100));
    path.cubicTo(at(0.37282392, 0.16905899), at(0.16905899, 0.37282392), at(0.07491100, 0.63149399));
    path.cubicTo(at(0, 0.86840694), at(0, 1.08849296), at(0, reach));
}

} // namespace

QPainterPath continuousRectangle(const QRectF &rectangle, double radius, Qt::Edges straight)
{
    const double r = std::min(radius, std::min(rectangle.width(), rectangle.height()) / 2 / reach);
    const double left = rectangle.left();
    const double top = rectangle.top();
    const double right = rectangle.right();
    const double bottom = rectangle.bottom();
    struct Corner
    {
        Qt::Edges edges;
        QTransform place; ///< Its own axes point along its two edges.
    };
    const std::array corners{
        Corner{Qt::TopEdge | Qt::LeftEdge, QTransform(r, 0, 0, r, left, top)},
        Corner{Qt::LeftEdge | Qt::BottomEdge, QTransform(0, -r, r, 0, left, bottom)},
        Corner{Qt::BottomEdge | Qt::RightEdge, QTransform(-r, 0, 0, -r, right, bottom)},
        Corner{Qt::RightEdge | Qt::TopEdge, QTransform(0, r, -r, 0, right, top)},
    };
    QPainterPath path;
    path.moveTo((left + right) / 2, top);
    for (const Corner &corner : corners) { // Counter-clockwise.
        if (r <= 0 || corner.edges.testAnyFlags(straight))
            path.lineTo(corner.place.map(QPointF(0, 0)));
        else
            addRoundCorner(path, corner.place);
    }
    path.closeSubpath();
    return path;
}

ContinuousRectangle::ContinuousRectangle(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &ContinuousRectangle::looksChanged, this, [this] { update(); });
}

void ContinuousRectangle::paint(QPainter *painter)
{
    const QPainterPath outline = continuousRectangle(boundingRect(), cornerRadius, straight);
    painter->fillPath(outline, fill);
    if (lineWidth <= 0 || line.alpha() == 0)
        return;
    // A stroke is centred on the outline; the outer half is clipped, so that the line lies inside.
    painter->setClipPath(outline);
    painter->strokePath(outline, QPen(line, 2 * lineWidth));
}

} // namespace tidlo
