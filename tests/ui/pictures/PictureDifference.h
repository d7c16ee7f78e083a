#pragma once

#include <QImage>

namespace tidlo {

/// The differences of two pictures of one size that are larger than another machine's rounding.
struct PictureDifference
{
    int pixels = 0;
    QImage map; ///< The second picture, pale, with the differences in red.
};

/// Pictures of different sizes differ everywhere.
PictureDifference differenceOf(const QImage &kept, const QImage &drawn);

} // namespace tidlo
