#pragma once

#include "cli/Terminal.h"
#include "model/ScanSnapshot.h"
#include "scanner/Forecast.h"

namespace tidlo {

/// Whether the paths of a finding are listed beneath it.
enum class ListedPaths { none, all };

/// The findings in their order: a table if it fits into the terminal's width, otherwise some lines for each. Characters
/// in names that could act on the terminal are escaped.
QString findingsText(const QList<CleanupCandidate> &candidates, ListedPaths paths, const Terminal &terminal);

/// How much was found, how much of it is selected, how much that frees if not all of it, and the disk's figures.
QString totalsText(const ScanTotals &totals, const Forecast &forecast, const Terminal &terminal);

/// The folders that could not be read, one per line; empty if there are none.
QString unreadText(const UnreadFolders &unread);

/// "1 item", "2 items".
QString countText(qint64 count, const QString &thing);

} // namespace tidlo
