#pragma once

#include <QColor>
#include <QList>

namespace tidlo {

/// The contrast between \a one and \a other, both opaque: from 1 (none) to 21 (black and white), as in WCAG 2.
double contrastBetween(const QColor &one, const QColor &other);

/// The colour that results where \a color lies over \a beneath, which is opaque.
QColor laidOver(const QColor &color, const QColor &beneath);

/// The backgrounds that a colour is drawn on.
struct Grounds
{
    QList<QColor> surfaces; ///< Opaque.
    double ownTint = 0;     ///< If above 0, it is also drawn on each of these tinted with itself at this opacity.
};

/// The lowest contrast of \a color on any of \a grounds. A translucent color is blended with what is beneath it first.
double leastContrast(const QColor &color, const Grounds &grounds);

/// \a color with the same hue and saturation, changed in lightness only as far as necessary for a contrast of at least
/// \a least on all of \a grounds. If it is translucent, its opacity is raised first. If no lightness is enough, the
/// best one is used.
QColor withContrast(const QColor &color, const Grounds &grounds, double least);

} // namespace tidlo
