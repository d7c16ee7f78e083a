#include "model/TidloPercent.h"

#include <cmath>

namespace tidlo {

QString tidloPercent(double fraction)
{
    const double percentage = std::round(fraction * 100);
    constexpr double limit = 9223372036854775808.0; // 2^63, exact as a double.
    if (!std::isfinite(percentage) || percentage < -limit || percentage >= limit)
        qFatal("Not a fraction that can be shown as a percentage: %g", fraction);
    return QString::number(static_cast<qint64>(percentage)) + QLatin1Char('%');
}

} // namespace tidlo
