#pragma once

#include <QImage>

namespace tidlo {

/// Where two pictures of one size differ by more than another machine's rounding.
struct PictureDifference
{
    int pixels = 0;
    QImage map; ///< The second picture, pale, and in red what differs.
};

/// Pictures of different sizes differ everywhere.
PictureDifference differenceOf(const QImage &kept, const QImage &drawn);

} // namespace tidlo
