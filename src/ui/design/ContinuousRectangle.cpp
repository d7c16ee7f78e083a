#include "ui/design/ContinuousRectangle.h"

#include "ui/design/ContinuousCorners.h"

#include <QPainter>

namespace tidlo {

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
    // A stroke stands on the outline; what is outside of it is clipped, so that the line lies within.
    painter->setClipPath(outline);
    painter->strokePath(outline, QPen(line, 2 * lineWidth));
}

} // namespace tidlo
