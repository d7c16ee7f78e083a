#include "platform/ByteCountFormatter.h"

#include <QLatin1StringView>

#include <array>

namespace tidlo {

namespace {

struct Unit
{
    quint64 bytes;
    quint64 steps; ///< The precision, in steps of one unit: 10 means one decimal.
    QLatin1StringView symbol;
};

constexpr std::array units{
    Unit{1'000, 1, QLatin1StringView("KB")},
    Unit{1'000'000, 10, QLatin1StringView("MB")},
    Unit{1'000'000'000, 100, QLatin1StringView("GB")},
    Unit{1'000'000'000'000, 100, QLatin1StringView("TB")},
    Unit{1'000'000'000'000'000, 100, QLatin1StringView("PB")},
    Unit{1'000'000'000'000'000'000, 100, QLatin1StringView("EB")},
};

QString decimalText(quint64 count, quint64 steps)
{
    QString text = QString::number(count / steps);
    quint64 rest = count % steps;
    if (rest == 0)
        return text;
    text += QLatin1Char('.');
    for (quint64 digit = steps / 10; rest != 0; rest %= digit, digit /= 10)
        text += QString::number(rest / digit);
    return text;
}

QString magnitudeText(quint64 bytes)
{
    if (bytes == 0)
        return QStringLiteral("Zero KB");
    if (bytes < units.front().bytes)
        return bytes == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(bytes);
    for (const Unit &unit : units) {
        const quint64 step = unit.bytes / unit.steps;
        const quint64 count = bytes / step + (bytes % step * 2 >= step ? 1 : 0);
        if (count < 1'000 * unit.steps || &unit == &units.back())
            return decimalText(count, unit.steps) + QLatin1Char(' ') + unit.symbol;
    }
    Q_UNREACHABLE();
}

} // namespace

QString byteCountText(qint64 bytes)
{
    const quint64 magnitude = bytes < 0 ? ~static_cast<quint64>(bytes) + 1 : static_cast<quint64>(bytes);
    return (bytes < 0 ? QStringLiteral("-") : QString()) + magnitudeText(magnitude);
}

} // namespace tidlo
