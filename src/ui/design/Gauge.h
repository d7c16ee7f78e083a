#pragma once

#include "ui/design/PictureItem.h"

#include <QColor>

class QPainterPath;

namespace tidlo {

/// An arc of a circle, as wide as the item. It begins at three o'clock and runs clockwise; for another beginning,
/// rotate the item, which rotates the gradient as well. Drawn again only when one of its properties changes, and only
/// where its line is, so that turning a short arc changes few pixels.
class Gauge : public tidlo::PictureItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double from MEMBER begin NOTIFY looksChanged)
    Q_PROPERTY(double to MEMBER end NOTIFY looksChanged)
    Q_PROPERTY(double lineWidth MEMBER lineWidth NOTIFY looksChanged)
    Q_PROPERTY(bool roundCaps MEMBER roundCaps NOTIFY looksChanged)
    /// The clockwise rotation in degrees. Each rotation that was shown is cached: without a graphics processor, showing
    /// it again costs less than rotating, as long as there are few different angles.
    Q_PROPERTY(int turnedBy MEMBER turnedBy NOTIFY turned)
    /// At the top right of a gradient.
    Q_PROPERTY(QColor color MEMBER topTrailing NOTIFY looksChanged)
    /// At the bottom left of a gradient; without it there is no gradient.
    Q_PROPERTY(QColor bottomColor MEMBER bottomLeading NOTIFY looksChanged)

public:
    explicit Gauge(QQuickItem *parent = nullptr);

    /// The rectangle that the line covers, with its caps and smooth edges, in whole points.
    QRect inkedRect() const;
    int shown() const override { return turnedBy; }
    QImage picture(double pixelRatio) override;
    QPointF placeOf(const QSizeF &picture) const override;

Q_SIGNALS:
    void looksChanged();
    void turned();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    QRectF circle() const;
    QPainterPath line() const;
    QTransform turn() const;
    QBrush brush() const;

    double begin = 0; ///< Fractions of the circle.
    double end = 1;
    double lineWidth = 1;
    bool roundCaps = false;
    int turnedBy = 0;
    QColor topTrailing = Qt::black;
    QColor bottomLeading;
};

} // namespace tidlo
