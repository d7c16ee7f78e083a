#pragma once

namespace tidlo {

/// Where the main flow stands. It has no text form.
enum class ScanPhase {
    ready,    ///< Nothing scanned yet, or back at the start.
    scanning, ///< A scan or a cleanup is running.
    results,  ///< A snapshot is shown.
    report,   ///< A cleanup report is shown.
};

} // namespace tidlo
