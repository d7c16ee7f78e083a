#include "ui/design/ThemePreference.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

struct Theme
{
    QLatin1StringView stored;
    std::optional<ColorScheme> scheme;
    QLatin1StringView label;
    QLatin1StringView symbol;
    QLatin1StringView next;
};

constexpr std::array themes{
    Theme{QLatin1StringView("dark"), ColorScheme::dark, QLatin1StringView("Dark"), QLatin1StringView("moon.fill"),
          QLatin1StringView("light")},
    Theme{QLatin1StringView("light"), ColorScheme::light, QLatin1StringView("Light"), QLatin1StringView("sun.max.fill"),
          QLatin1StringView("system")},
    Theme{QLatin1StringView("system"), std::nullopt, QLatin1StringView("System"), QLatin1StringView("laptopcomputer"),
          QLatin1StringView("dark")},
};

const Theme &themeStoredAs(const QString &theme)
{
    const auto found = std::ranges::find_if(themes, [&theme](const Theme &known) { return known.stored == theme; });
    return found == themes.end() ? themes.back() : *found;
}

} // namespace

std::optional<ColorScheme> preferredColorScheme(const QString &theme)
{
    return themeStoredAs(theme).scheme;
}

ColorScheme effectiveColorScheme(const QString &theme, ColorScheme system)
{
    return preferredColorScheme(theme).value_or(system);
}

QString themeLabel(const QString &theme)
{
    return themeStoredAs(theme).label;
}

QString themeSymbol(const QString &theme)
{
    return themeStoredAs(theme).symbol;
}

QString themeAfter(const QString &theme)
{
    return themeStoredAs(theme).next;
}

} // namespace tidlo
