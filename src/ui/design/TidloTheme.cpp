#include "ui/design/TidloTheme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace tidlo {

namespace {

/// Components from 0 to 1.
struct Rgba
{
    double red;
    double green;
    double blue;
    double opacity = 1;
};

struct SchemeColor
{
    Rgba dark;
    Rgba light;
};

constexpr Rgba white{1, 1, 1};

constexpr Rgba whiteAt(double opacity)
{
    return {1, 1, 1, opacity};
}

constexpr Rgba blackAt(double opacity)
{
    return {0, 0, 0, opacity};
}

/// Components from 0 to 255.
constexpr Rgba bytes(int red, int green, int blue)
{
    return {red / 255.0, green / 255.0, blue / 255.0};
}

QColor colorOf(const Rgba &color)
{
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.opacity));
}

QColor mix(const SchemeColor &color, double darkness)
{
    const double share = std::clamp(darkness, 0.0, 1.0); // The spring swings over.
    const auto between = [share](double dark, double light) { return light + (dark - light) * share; };
    return colorOf({between(color.dark.red, color.light.red), between(color.dark.green, color.light.green),
                    between(color.dark.blue, color.light.blue), between(color.dark.opacity, color.light.opacity)});
}

/// The platform tells its scheme by the colours that it gives to text and to what lies behind it.
ColorScheme schemeOfPlatform()
{
    const QPalette palette = QGuiApplication::palette();
    const bool isDark = palette.color(QPalette::Window).lightnessF() < palette.color(QPalette::WindowText).lightnessF();
    return isDark ? ColorScheme::dark : ColorScheme::light;
}

} // namespace

TidloTheme::TidloTheme(QObject *parent)
    : QObject(parent)
    , platformScheme(schemeOfPlatform())
{
    setMotion(Motion().theme());
    connect(&change, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        currentDarkness = value.toDouble();
        Q_EMIT colorsChanged();
    });
    qGuiApp->installEventFilter(this);
}

void TidloTheme::setPreference(const QString &preference)
{
    const ColorScheme before = scheme();
    const bool isFirst = !std::exchange(isChosen, true);
    if (preference == storedPreference)
        return;
    storedPreference = preference;
    Q_EMIT preferenceChanged();
    changeScheme(before);
    if (isFirst)
        finishChange();
}

void TidloTheme::setDesktopScheme(std::optional<ColorScheme> told)
{
    const ColorScheme before = scheme();
    const bool isFirst = !std::exchange(isTold, true);
    desktopScheme = told;
    changeScheme(before);
    if (isFirst)
        finishChange();
}

void TidloTheme::setMotion(const SpringMotion &motion)
{
    change.setDuration(motion.duration);
    change.setEasingCurve(motion.easing);
}

bool TidloTheme::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange)
        followPlatform();
    return QObject::eventFilter(watched, event);
}

ColorScheme TidloTheme::scheme() const
{
    return effectiveColorScheme(storedPreference, desktopScheme.value_or(platformScheme));
}

void TidloTheme::followPlatform()
{
    const ColorScheme before = scheme();
    platformScheme = schemeOfPlatform();
    changeScheme(before);
}

void TidloTheme::changeScheme(ColorScheme before)
{
    if (scheme() == before)
        return;
    Q_EMIT schemeChanged();
    change.stop();
    change.setStartValue(currentDarkness);
    change.setEndValue(isDark() ? 1.0 : 0.0);
    change.start();
}

double TidloTheme::mixed(double darkness, double dark, double light)
{
    return light + (dark - light) * darkness;
}

QList<QColor> TidloTheme::hues() const
{
    return {systemBlue(), systemMint(), systemPurple(), systemYellow(), systemOrange(),
            systemRed(),  blue(),       green(),        red(),          primaryText()};
}

QColor TidloTheme::faded(const QColor &color, double opacity)
{
    QColor faded = color;
    faded.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return faded;
}

QColor TidloTheme::blended(const QColor &from, const QColor &to, double share)
{
    const auto rgba = [](const QColor &color) {
        return Rgba{color.redF(), color.greenF(), color.blueF(), color.alphaF()};
    };
    return mix({.dark = rgba(to), .light = rgba(from)}, share);
}

QColor TidloTheme::blue()
{
    return colorOf({0.388, 0.682, 0.718});
}

QColor TidloTheme::green()
{
    return colorOf({0.502, 0.741, 0.769});
}

QColor TidloTheme::red()
{
    return colorOf({1.0, 0.35, 0.39});
}

// The token table: dark, then light.
#define TIDLO_COLOR(name, ...) \
    QColor TidloTheme::name() const \
    { \
        static constexpr SchemeColor color{__VA_ARGS__}; \
        return mix(color, currentDarkness); \
    }

TIDLO_COLOR(cardSurface, {0.122, 0.192, 0.212}, white)
TIDLO_COLOR(controlSurface, {0.098, 0.153, 0.169}, {0.878, 0.929, 0.941})
TIDLO_COLOR(controlBorder, whiteAt(0.12), {0.737, 0.824, 0.839})
TIDLO_COLOR(primaryText, {0.89, 0.91, 0.918}, {0.059, 0.118, 0.129})
TIDLO_COLOR(mutedText, {0.51, 0.612, 0.624}, {0.255, 0.361, 0.388})
TIDLO_COLOR(windowBackground, {0.055, 0.086, 0.094}, {0.953, 0.973, 0.976})
TIDLO_COLOR(topBarBackground, {0.035, 0.055, 0.063}, white)
TIDLO_COLOR(railBackground, {0.035, 0.055, 0.063}, {0.898, 0.937, 0.945})
TIDLO_COLOR(railSymbol, whiteAt(0.68), {0.255, 0.361, 0.388})
TIDLO_COLOR(sidebarBackground, {0.071, 0.11, 0.122}, {0.918, 0.949, 0.957})
TIDLO_COLOR(systemBlue, bytes(10, 132, 255), bytes(0, 122, 255))
TIDLO_COLOR(systemMint, bytes(99, 230, 226), bytes(0, 199, 190))
TIDLO_COLOR(systemPurple, bytes(191, 90, 242), bytes(175, 82, 222))
TIDLO_COLOR(systemYellow, bytes(255, 214, 10), bytes(255, 204, 0))
TIDLO_COLOR(systemOrange, bytes(255, 159, 10), bytes(255, 149, 0))
TIDLO_COLOR(systemRed, bytes(255, 69, 58), bytes(255, 59, 48))
TIDLO_COLOR(systemGray, bytes(152, 152, 157), bytes(142, 142, 147))
TIDLO_COLOR(secondaryLabel, whiteAt(0.55), blackAt(0.5))
TIDLO_COLOR(divider, whiteAt(0.1), blackAt(0.1))

#undef TIDLO_COLOR

} // namespace tidlo
