#include "ui/design/TidloTheme.h"

#include "ui/design/Contrast.h"

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
    const double share = std::clamp(darkness, 0.0, 1.0); // The spring overshoots.
    const auto between = [share](double dark, double light) { return light + (dark - light) * share; };
    return colorOf({between(color.dark.red, color.light.red), between(color.dark.green, color.light.green),
                    between(color.dark.blue, color.light.blue), between(color.dark.opacity, color.light.opacity)});
}

constexpr Rgba black = blackAt(1);

constexpr SchemeColor card{{0.122, 0.192, 0.212}, white};
constexpr SchemeColor control{{0.098, 0.153, 0.169}, {0.878, 0.929, 0.941}};
constexpr SchemeColor accentBlue{{0.388, 0.682, 0.718}, {0.388, 0.682, 0.718}};
constexpr SchemeColor accentGreen{{0.502, 0.741, 0.769}, {0.502, 0.741, 0.769}};

/// What a colour is for, which also says what it is drawn on.
enum class Role {
    surface, ///< Others are drawn on it.
    line,
    hue,     ///< Texts and symbols on a surface, or on a tint of their own.
    text,    ///< On a surface, or on any tint.
    symbol,  ///< On a surface.
    onGreen, ///< On the button of the accent.
};

constexpr double ofText = 4.5;   ///< The contrast that a text of any size needs,
constexpr double ofSymbol = 3.0; ///< and a symbol.

/// The surfaces where contrast is least: no surface is lighter than a card in the dark scheme, or darker than a control
/// in the light one.
QList<QColor> surfacesOf(Rgba SchemeColor::*scheme)
{
    return {colorOf(card.*scheme), colorOf(control.*scheme)};
}

QColor contrastingHue(const SchemeColor &hue, Rgba SchemeColor::*scheme)
{
    return withContrast(colorOf(hue.*scheme), {.surfaces = surfacesOf(scheme), .ownTint = 0.22}, ofText);
}

/// The same beneath the strongest tint that a text is drawn on, that of a chosen line.
QList<QColor> tintedSurfacesOf(Rgba SchemeColor::*scheme)
{
    QList<QColor> surfaces = surfacesOf(scheme);
    for (QColor &surface : surfaces)
        surface = laidOver(TidloTheme::faded(contrastingHue(accentBlue, scheme), 0.3), surface);
    return surfaces;
}

QColor readable(const SchemeColor &color, Rgba SchemeColor::*scheme, Role role)
{
    const QColor plain = colorOf(color.*scheme);
    switch (role) {
    case Role::surface:
        return plain;
    case Role::line:
        return QColor::fromRgbF(plain.redF(), plain.greenF(), plain.blueF());
    case Role::hue:
        return contrastingHue(color, scheme);
    case Role::text:
        return withContrast(plain, {.surfaces = tintedSurfacesOf(scheme)}, ofText);
    case Role::symbol:
        return withContrast(plain, {.surfaces = surfacesOf(scheme)}, ofSymbol);
    case Role::onGreen:
        return withContrast(plain, {.surfaces = {contrastingHue(accentGreen, scheme)}}, ofText);
    }
    return plain;
}

Rgba rgbaOf(const QColor &color)
{
    return {color.redF(), color.greenF(), color.blueF(), color.alphaF()};
}

SchemeColor readable(const SchemeColor &color, Role role)
{
    return {.dark = rgbaOf(readable(color, &SchemeColor::dark, role)),
            .light = rgbaOf(readable(color, &SchemeColor::light, role))};
}

/// The platform's scheme, guessed from the colours that it gives to text and to its background.
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

void TidloTheme::setHighContrast(bool isHigh)
{
    if (isHigh == highContrast)
        return;
    highContrast = isHigh;
    Q_EMIT colorsChanged();
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

QColor TidloTheme::solid(const QColor &color, double opacity) const
{
    return highContrast ? laidOver(color, color) : faded(color, opacity);
}

QColor TidloTheme::selection() const
{
    return highContrast ? green() : faded(blue(), 0.45);
}

QColor TidloTheme::selectedText() const
{
    return highContrast ? accentLabel() : primaryText();
}

QColor TidloTheme::blended(const QColor &from, const QColor &to, double share)
{
    return mix({.dark = rgbaOf(to), .light = rgbaOf(from)}, share);
}

QColor TidloTheme::logoBlue()
{
    return colorOf(accentBlue.dark);
}

QColor TidloTheme::logoGreen()
{
    return colorOf(accentGreen.dark);
}

// The table of colours: what a colour is for, then its value in the dark scheme and in the light one.
#define TIDLO_COLOR(name, role, ...) \
    QColor TidloTheme::name() const \
    { \
        static constexpr SchemeColor color{__VA_ARGS__}; \
        static const SchemeColor contrasting = readable(color, Role::role); \
        return mix(highContrast ? contrasting : color, currentDarkness); \
    }

TIDLO_COLOR(blue, hue, accentBlue)
TIDLO_COLOR(green, hue, accentGreen)
TIDLO_COLOR(red, hue, {1.0, 0.35, 0.39}, {1.0, 0.35, 0.39})
TIDLO_COLOR(accentLabel, onGreen, black, black)
TIDLO_COLOR(cardSurface, surface, card)
TIDLO_COLOR(controlSurface, surface, control)
TIDLO_COLOR(controlBorder, line, whiteAt(0.12), {0.737, 0.824, 0.839})
TIDLO_COLOR(primaryText, text, {0.89, 0.91, 0.918}, {0.059, 0.118, 0.129})
TIDLO_COLOR(mutedText, text, {0.51, 0.612, 0.624}, {0.255, 0.361, 0.388})
TIDLO_COLOR(windowBackground, surface, {0.055, 0.086, 0.094}, {0.953, 0.973, 0.976})
TIDLO_COLOR(topBarBackground, surface, {0.035, 0.055, 0.063}, white)
TIDLO_COLOR(railBackground, surface, {0.035, 0.055, 0.063}, {0.898, 0.937, 0.945})
TIDLO_COLOR(railSymbol, symbol, whiteAt(0.68), {0.255, 0.361, 0.388})
TIDLO_COLOR(sidebarBackground, surface, {0.071, 0.11, 0.122}, {0.918, 0.949, 0.957})
TIDLO_COLOR(systemBlue, hue, bytes(10, 132, 255), bytes(0, 122, 255))
TIDLO_COLOR(systemMint, hue, bytes(99, 230, 226), bytes(0, 199, 190))
TIDLO_COLOR(systemPurple, hue, bytes(191, 90, 242), bytes(175, 82, 222))
TIDLO_COLOR(systemYellow, hue, bytes(255, 214, 10), bytes(255, 204, 0))
TIDLO_COLOR(systemOrange, hue, bytes(255, 159, 10), bytes(255, 149, 0))
TIDLO_COLOR(systemRed, hue, bytes(255, 69, 58), bytes(255, 59, 48))
TIDLO_COLOR(systemGray, surface, bytes(152, 152, 157), bytes(142, 142, 147))
TIDLO_COLOR(secondaryLabel, text, whiteAt(0.55), blackAt(0.5))
TIDLO_COLOR(divider, line, whiteAt(0.1), blackAt(0.1))

#undef TIDLO_COLOR

} // namespace tidlo
