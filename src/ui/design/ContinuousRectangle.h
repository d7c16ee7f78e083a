#pragma once

#include <QColor>
#include <QPainterPath>
#include <QQuickPaintedItem>
#include <QtCore/qnamespace.h>

namespace tidlo {

/// A rectangle whose corners bend gradually into its edges, while those of a circle do so abruptly. Each corner takes
/// 1.528665 times \a radius of both its edges; where the edges are shorter, the radius is less. The points of the curve
/// were measured on the platform that the look comes from. At the edges in \a straight, the corners are square.
QPainterPath continuousRectangle(const QRectF &rectangle, double radius, Qt::Edges straight = {});

/// A filled rectangle with continuous corners, and, if it has a width, a line inside its edge. Drawn anew only when
/// one of its properties or its size changes.
class ContinuousRectangle : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER fill NOTIFY looksChanged)
    Q_PROPERTY(double radius MEMBER cornerRadius NOTIFY looksChanged)
    Q_PROPERTY(Qt::Edges straightEdges MEMBER straight NOTIFY looksChanged)
    Q_PROPERTY(QColor borderColor MEMBER line NOTIFY looksChanged)
    Q_PROPERTY(double borderWidth MEMBER lineWidth NOTIFY looksChanged)

public:
    explicit ContinuousRectangle(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void looksChanged();

private:
    QColor fill = Qt::transparent;
    double cornerRadius = 0;
    Qt::Edges straight; ///< Edges whose corners are square.
    QColor line = Qt::transparent;
    double lineWidth = 0;
};

} // namespace tidlo
