#pragma once

#include <QColor>
#include <QList>

namespace tidlo {

/// How well \a one is told from \a other, both opaque: from 1, not at all, to 21, as black from white (WCAG 2).
double contrastBetween(const QColor &one, const QColor &other);

/// What is seen where \a color lies over \a beneath, which is opaque.
QColor laidOver(const QColor &color, const QColor &beneath);

/// What a colour is drawn on.
struct Grounds
{
    QList<QColor> surfaces; ///< Opaque.
    double ownTint = 0;     ///< It is also drawn on each of these beneath itself at this opacity.
};

/// The contrast of \a color on that of \a grounds where it is least. A translucent one is seen through.
double leastContrast(const QColor &color, const Grounds &grounds);

/// \a color, of the same hue and saturation, as little lighter or darker as it takes to have a contrast of \a least on
/// all of \a grounds. Of a translucent one, the opacity is raised first. Where no lightness is enough, the best.
QColor withContrast(const QColor &color, const Grounds &grounds, double least);

} // namespace tidlo
