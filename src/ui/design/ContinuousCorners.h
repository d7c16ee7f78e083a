#pragma once

#include <QPainterPath>
#include <QtCore/qnamespace.h>

namespace tidlo {

/// A rectangle whose corners bend gradually into its edges, instead of at once as those of a circle do. Each corner
/// takes 1.528665 times \a radius of both its edges; where they are shorter, the radius is less. The stations of the
/// curve are those that were measured of the platform that the look comes from. At the edges in \a straight, the
/// corners are square.
QPainterPath continuousRectangle(const QRectF &rectangle, double radius, Qt::Edges straight = {});

} // namespace tidlo
