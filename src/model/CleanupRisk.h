#pragma once

#include "model/RawValue.h"

namespace tidlo {

/// How safe it is to move a finding to the Trash. The raw value is the title shown and the identity when encoded.
enum class CleanupRisk { safe, rebuildable, review, never };

template <>
inline constexpr std::array rawValues<CleanupRisk>{
    RawValueRow{CleanupRisk::safe, QLatin1StringView("Safe to delete")},
    RawValueRow{CleanupRisk::rebuildable, QLatin1StringView("Rebuildable")},
    RawValueRow{CleanupRisk::review, QLatin1StringView("Review first")},
    RawValueRow{CleanupRisk::never, QLatin1StringView("Never touch")},
};

} // namespace tidlo
