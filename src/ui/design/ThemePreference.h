#pragma once

#include <QString>

#include <optional>

namespace tidlo {

/// The two colour schemes of the interface.
enum class ColorScheme { dark, light };

/// The preference in force if none is stored.
inline constexpr QLatin1StringView defaultTheme("dark");

// What a stored theme preference means. "dark" and "light" are recognised, case-sensitively; any other text, "system"
// among them, follows the system.

/// The scheme that the preference asks for; absent if it follows the system's scheme.
std::optional<ColorScheme> preferredColorScheme(const QString &theme);

/// The scheme in force while \a system is the system's own.
ColorScheme effectiveColorScheme(const QString &theme, ColorScheme system);

/// The name of the preference: "Dark", "Light" or "System".
QString themeLabel(const QString &theme);

/// The name of the symbol that stands for it.
QString themeSymbol(const QString &theme);

/// The preference that comes next when a person switches: dark, light, system, and dark again.
QString themeAfter(const QString &theme);

} // namespace tidlo
