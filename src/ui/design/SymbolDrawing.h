#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QStringList>

namespace tidlo {

// The symbols: one drawing for each name, in symbols/<name>.svg, black on a grid of 24 by 24. White in a drawing takes
// ink away. The stroke widths in the files are those of the regular weight.

/// The side of the grid.
constexpr double symbolGrid = 24;

/// All names that have a drawing, sorted.
QStringList symbolNames();

/// Whether there is a drawing of \a name.
bool hasSymbol(const QString &name);

/// How much wider the strokes of \a weight (400 to 700) are than regular ones, in units of the grid.
double strokeGrowth(int weight);

/// The drawing of \a name as SVG, with the strokes of \a weight; empty if there is none of that name.
QByteArray symbolDrawing(const QString &name, int weight);

/// The side, in points, of the square that a symbol takes where the font has \a size: 1.2 times that, rounded up to the
/// next even number, so that it can be centred anywhere without a blur.
double symbolBox(double size);

/// The ink of a symbol, as opacities, in its square where a point has \a pixelRatio pixels. Null if there is no drawing
/// of \a name.
QImage symbolInk(const QString &name, double size, int weight, double pixelRatio);

/// \a ink, coloured with \a color.
QImage inColor(const QImage &ink, const QColor &color);

} // namespace tidlo
