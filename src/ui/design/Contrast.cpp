#include "ui/design/Contrast.h"

#include <algorithm>
#include <cmath>

namespace tidlo {

namespace {

constexpr int steps = 500; ///< Of lightness and of opacity, from 0 to 1.

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor atOpacity(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

QColor atLightness(const QColor &color, double lightness)
{
    return QColor::fromHslF(color.hslHueF(), color.hslSaturationF(),
                            static_cast<float>(std::clamp(lightness, 0.0, 1.0)), color.alphaF())
        .toRgb();
}

} // namespace

double contrastBetween(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor laidOver(const QColor &color, const QColor &beneath)
{
    const float share = color.alphaF();
    const auto part = [share](float over, float under) { return under + (over - under) * share; };
    return QColor::fromRgbF(part(color.redF(), beneath.redF()), part(color.greenF(), beneath.greenF()),
                            part(color.blueF(), beneath.blueF()));
}

double leastContrast(const QColor &color, const Grounds &grounds)
{
    double least = 21;
    const auto consider = [&](const QColor &ground) {
        least = std::min(least, contrastBetween(laidOver(color, ground), ground));
    };
    for (const QColor &surface : grounds.surfaces) {
        consider(surface);
        if (grounds.ownTint > 0)
            consider(laidOver(atOpacity(color, color.alphaF() * grounds.ownTint), surface));
    }
    return least;
}

QColor withContrast(const QColor &color, const Grounds &grounds, double least)
{
    QColor best = color;
    for (int step = 0; best.alphaF() < 1 && leastContrast(best, grounds) < least && step < steps; ++step)
        best = atOpacity(best, std::min(1.0, best.alphaF() + 1.0 / steps));
    const QColor opaque = best;
    for (int step = 1; leastContrast(best, grounds) < least && step <= steps; ++step) {
        for (const double distance : {1.0 * step / steps, -1.0 * step / steps}) {
            const QColor other = atLightness(opaque, opaque.lightnessF() + distance);
            if (leastContrast(other, grounds) > leastContrast(best, grounds))
                best = other;
        }
    }
    return best;
}

} // namespace tidlo
