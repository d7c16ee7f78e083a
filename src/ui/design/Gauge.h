#pragma once

#include <QColor>
#include <QQuickPaintedItem>

/// A part of a circle's line, as wide as the item. It begins at three o'clock and runs clockwise; whoever wants another
/// beginning rotates the item, and with it the gradient, if there is one. Drawn anew only when one of its properties
/// changes.
class Gauge : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double from MEMBER begin NOTIFY looksChanged)
    Q_PROPERTY(double to MEMBER end NOTIFY looksChanged)
    Q_PROPERTY(double lineWidth MEMBER lineWidth NOTIFY looksChanged)
    Q_PROPERTY(bool roundCaps MEMBER roundCaps NOTIFY looksChanged)
    /// At the top right of a gradient
    Q_PROPERTY(QColor color MEMBER topTrailing NOTIFY looksChanged)
    /// to the bottom left. Without it there is none.
    Q_PROPERTY(QColor bottomColor MEMBER bottomLeading NOTIFY looksChanged)

public:
    explicit Gauge(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void looksChanged();

private:
    QBrush brush(const QRectF &circle) const;

    double begin = 0; ///< Fractions of the circle.
    double end = 1;
    double lineWidth = 1;
    bool roundCaps = false;
    QColor topTrailing = Qt::black;
    QColor bottomLeading;
};
