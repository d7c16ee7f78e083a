#pragma once

#include <QByteArray>
#include <QImage>
#include <QStringList>

// The symbols: one drawing for each name, in symbols/<name>.svg, black on a grid of 24 by 24. White in a drawing takes
// ink away. The widths of the strokes in the files are those of the regular weight.

/// The side of the grid.
constexpr double symbolGrid = 24;

/// All names that have a drawing, sorted.
QStringList symbolNames();

/// How much wider the strokes of \a weight (400 to 700) are than regular ones, in units of the grid.
double strokeGrowth(int weight);

/// The drawing of \a name as SVG, with the strokes of \a weight; empty if there is none of that name.
QByteArray symbolDrawing(const QString &name, int weight);

/// The ink of \a drawing, from symbolDrawing(), as opacities: a square of \a side pixels, with the grid in its middle,
/// \a gridSide pixels wide.
QImage symbolInk(const QByteArray &drawing, int side, double gridSide);
