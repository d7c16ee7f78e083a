#include "ui/design/Gauge.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

Gauge::Gauge(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &Gauge::looksChanged, this, [this] { update(); });
}

QBrush Gauge::brush(const QRectF &circle) const
{
    if (!bottomLeading.isValid())
        return topTrailing;
    QLinearGradient gradient(circle.topRight(), circle.bottomLeft());
    gradient.setColorAt(0, topTrailing);
    gradient.setColorAt(1, bottomLeading);
    return gradient;
}

void Gauge::paint(QPainter *painter)
{
    const QRectF circle = boundingRect().adjusted(lineWidth / 2, lineWidth / 2, -lineWidth / 2, -lineWidth / 2);
    QPen pen(brush(circle), lineWidth);
    pen.setCapStyle(roundCaps ? Qt::RoundCap : Qt::FlatCap);
    painter->setPen(pen);
    constexpr double fullTurn = 360;
    const double from = std::clamp(begin, 0.0, 1.0);
    const double to = std::clamp(end, from, 1.0);
    QPainterPath path;
    path.arcMoveTo(circle, -from * fullTurn);
    path.arcTo(circle, -from * fullTurn, -(to - from) * fullTurn);
    painter->drawPath(path);
}
