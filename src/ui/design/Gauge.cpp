#include "ui/design/Gauge.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <algorithm>

namespace tidlo {

Gauge::Gauge(QQuickItem *parent)
    : PictureItem(parent)
{
    connect(this, &Gauge::looksChanged, this, &Gauge::changePicture);
    connect(this, &Gauge::turned, this, &Gauge::update);
}

void Gauge::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    if (newGeometry.size() != oldGeometry.size())
        changePicture();
    PictureItem::geometryChange(newGeometry, oldGeometry);
}

QRectF Gauge::circle() const
{
    return boundingRect().adjusted(lineWidth / 2, lineWidth / 2, -lineWidth / 2, -lineWidth / 2);
}

QPainterPath Gauge::line() const
{
    constexpr double fullTurn = 360;
    const double from = std::clamp(begin, 0.0, 1.0);
    const double to = std::clamp(end, from, 1.0);
    QPainterPath path;
    path.arcMoveTo(circle(), -from * fullTurn);
    path.arcTo(circle(), -from * fullTurn, -(to - from) * fullTurn);
    return path;
}

QBrush Gauge::brush() const
{
    if (!bottomLeading.isValid())
        return topTrailing;
    QLinearGradient gradient(circle().topRight(), circle().bottomLeft());
    gradient.setColorAt(0, topTrailing);
    gradient.setColorAt(1, bottomLeading);
    return gradient;
}

QTransform Gauge::turn() const
{
    const QPointF middle = circle().center();
    return QTransform::fromTranslate(middle.x(), middle.y()).rotate(turnedBy).translate(-middle.x(), -middle.y());
}

QRect Gauge::inkedRect() const
{
    const double around = lineWidth / 2 + 1;
    return turn().map(line()).boundingRect().adjusted(-around, -around, around, around).toAlignedRect();
}

QPointF Gauge::placeOf(const QSizeF &) const
{
    return inkedRect().topLeft();
}

QImage Gauge::picture(double pixelRatio)
{
    const QRect inked = inkedRect();
    QImage drawn((QSizeF(inked.size()) * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    drawn.setDevicePixelRatio(pixelRatio);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(turn() * QTransform::fromTranslate(-inked.left(), -inked.top()));
    QPen pen(brush(), lineWidth);
    pen.setCapStyle(roundCaps ? Qt::RoundCap : Qt::FlatCap);
    painter.strokePath(line(), pen);
    return drawn;
}

} // namespace tidlo
