#pragma once

#include "model/RawValue.h"

namespace tidlo {

/// What kind of thing a finding is. The raw value is the title shown and the identity when encoded.
enum class CleanupCategory {
    devProjects,
    whatsApp,
    caches,
    downloads,
    oldLargeFiles,
    protected_, ///< `protected`, which is a word of the language.
};

template <>
inline constexpr std::array rawValues<CleanupCategory>{
    RawValueRow{CleanupCategory::devProjects, QLatin1StringView("Project files")},
    RawValueRow{CleanupCategory::whatsApp, QLatin1StringView("WhatsApp")},
    RawValueRow{CleanupCategory::caches, QLatin1StringView("User caches")},
    RawValueRow{CleanupCategory::downloads, QLatin1StringView("Downloads")},
    RawValueRow{CleanupCategory::oldLargeFiles, QLatin1StringView("Large & old files")},
    RawValueRow{CleanupCategory::protected_, QLatin1StringView("Protected")},
};

} // namespace tidlo
