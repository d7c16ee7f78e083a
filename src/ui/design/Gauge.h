#pragma once

#include "ui/design/PictureItem.h"

#include <QColor>

class QPainterPath;

namespace tidlo {

/// A part of a circle's line, as wide as the item. It begins at three o'clock and runs clockwise; whoever wants another
/// beginning rotates the item, and with it the gradient, if there is one. Drawn anew only when one of its properties
/// changes, and only where its line is: turning a short arc moves few pixels.
class Gauge : public tidlo::PictureItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double from MEMBER begin NOTIFY looksChanged)
    Q_PROPERTY(double to MEMBER end NOTIFY looksChanged)
    Q_PROPERTY(double lineWidth MEMBER lineWidth NOTIFY looksChanged)
    Q_PROPERTY(bool roundCaps MEMBER roundCaps NOTIFY looksChanged)
    /// By how many degrees it is turned clockwise. What was shown once is kept: in software that takes less to show
    /// again than to rotate, as long as the angles are few.
    Q_PROPERTY(int turnedBy MEMBER turnedBy NOTIFY turned)
    /// At the top right of a gradient
    Q_PROPERTY(QColor color MEMBER topTrailing NOTIFY looksChanged)
    /// to the bottom left. Without it there is none.
    Q_PROPERTY(QColor bottomColor MEMBER bottomLeading NOTIFY looksChanged)

public:
    explicit Gauge(QQuickItem *parent = nullptr);

    /// The line and what its caps and its smooth edges cover, in whole points.
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
