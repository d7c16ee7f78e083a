#pragma once

#include "model/RawValue.h"

namespace tidlo {

/// The sections of the main window, identified by their raw values.
enum class AppSection { scan, results, report, settings };

template <>
inline constexpr std::array rawValues<AppSection>{
    RawValueRow{AppSection::scan, QLatin1StringView("scan")},
    RawValueRow{AppSection::results, QLatin1StringView("results")},
    RawValueRow{AppSection::report, QLatin1StringView("report")},
    RawValueRow{AppSection::settings, QLatin1StringView("settings")},
};

/// The state of the main flow. It has no text form.
enum class ScanPhase {
    ready,    ///< Nothing scanned yet, or back at the start.
    scanning, ///< A scan or a cleanup is running.
    results,  ///< A snapshot is shown.
    report,   ///< A cleanup report is shown.
};

} // namespace tidlo
