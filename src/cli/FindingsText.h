#pragma once

#include "cli/Terminal.h"
#include "model/ScanSnapshot.h"
#include "scanner/Forecast.h"

namespace tidlo {

/// Whether the paths of a finding are listed beneath it.
enum class ListedPaths { none, all };

/// The findings in their order: a table where it fits into the terminal's width, else some lines for each. Every name
/// is shown with what could act on the terminal escaped.
QString findingsText(const QList<CleanupCandidate> &candidates, ListedPaths paths, const Terminal &terminal);

/// What was found, what of it is selected and what that frees where it is not all, and the disk's figures.
QString totalsText(const ScanTotals &totals, const Forecast &forecast, const Terminal &terminal);

/// The folders that could not be read, a line each; empty if there are none.
QString unreadText(const UnreadFolders &unread);

/// "1 item", "2 items".
QString countText(qint64 count, const QString &thing);

} // namespace tidlo
