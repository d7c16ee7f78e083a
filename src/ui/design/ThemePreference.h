#pragma once

#include <QString>

#include <optional>

namespace tidlo {

/// The two ways the interface is coloured.
enum class ColorScheme { dark, light };

// What a stored theme preference means. "dark" and "light" are recognised, compared with case; any other text, "system"
// among them, follows the system.

/// Absent when the system's scheme is followed.
std::optional<ColorScheme> preferredColorScheme(const QString &theme);

/// The scheme in force while \a system is the system's own.
ColorScheme effectiveColorScheme(const QString &theme, ColorScheme system);

/// How the preference is called: "Dark", "Light" or "System".
QString themeLabel(const QString &theme);

/// The name of the symbol that stands for it.
QString themeSymbol(const QString &theme);

/// The preference that follows when a person switches on: dark, light, system, and dark again.
QString themeAfter(const QString &theme);

} // namespace tidlo
