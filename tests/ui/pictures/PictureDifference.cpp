#include "ui/pictures/PictureDifference.h"

#include <algorithm>
#include <cstdlib>

namespace tidlo {

namespace {

constexpr int rounding = 8; // Of 255, in each of red, green, blue and opacity.

bool isAlike(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other)), std::abs(qAlpha(one) - qAlpha(other))}) <= rounding;
}

QRgb paled(QRgb color)
{
    const int gray = 192 + qGray(color) / 4;
    return qRgb(gray, gray, gray);
}

} // namespace

PictureDifference differenceOf(const QImage &kept, const QImage &drawn)
{
    const QImage before = kept.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage now = drawn.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    PictureDifference difference{.pixels = 0, .map = now.convertToFormat(QImage::Format_RGB32)};
    for (int y = 0; y < now.height(); ++y) {
        for (int x = 0; x < now.width(); ++x) {
            const QRgb color = now.pixel(x, y);
            const bool fits = before.size() == now.size() && isAlike(before.pixel(x, y), color);
            difference.pixels += fits ? 0 : 1;
            difference.map.setPixel(x, y, fits ? paled(color) : qRgb(255, 0, 0));
        }
    }
    return difference;
}

} // namespace tidlo
