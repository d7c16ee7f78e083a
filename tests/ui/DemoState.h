#pragma once

#include "app/AppViewModel.h"

namespace tidlo {

/// Nine findings, one from each rule, as in a developer's home folder. Always the same.
QList<CleanupCandidate> demoFindings();

/// The figures of a disk of 500 GB that is 63 % full and has demoFindings() on it.
ScanTotals demoTotals();

/// The result of a scan of that disk. Of two paths of a finding, the later one is larger.
ScanResult demoResult();

/// The result of cleaning up the selected ones of them. The disk is as full as before: the Trash is on it.
CleanupReport demoReport();
QList<CleanupCandidate> demoFindingsAfterCleanup();
ScanTotals demoTotalsAfterCleanup();

/// An explanation as the service could give it.
QString demoExplanation();

/// Returns no explanation, at once.
QCoro::Task<std::optional<QString>> explainNothing(QList<CleanupCandidate>, ExplainWatch);

/// An environment with the disk of demoTotals() that finds nothing and explains nothing. Its desktop does nothing; the
/// application, its preferences and all files that it would write are in \a folder.
AppEnvironment demoEnvironment(const FilePath &folder);

} // namespace tidlo
