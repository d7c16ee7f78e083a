#pragma once

#include "app/AppViewModel.h"

namespace tidlo {

/// Nine findings, one from each rule, as a developer's home may have them. Always the same.
QList<CleanupCandidate> demoFindings();

/// The figures of a disk of 500 GB that is 63 % full and has demoFindings() on it.
ScanTotals demoTotals();

/// What a scan of that disk gives. Of two paths of a finding, the later one is larger.
ScanResult demoResult();

/// What the cleanup of what is selected of them tells and leaves. The disk is as full as before: the Trash is on it.
CleanupReport demoReport();
QList<CleanupCandidate> demoFindingsAfterCleanup();
ScanTotals demoTotalsAfterCleanup();

/// An explanation as the service may give it.
QString demoExplanation();

/// No explanation, at once.
QCoro::Task<std::optional<QString>> explainNothing(QList<CleanupCandidate>, ExplainWatch);

/// An environment with the disk of demoTotals() that finds nothing and explains nothing. Its desktop does
/// nothing; the application, its preferences and whatever it would write lie in \a folder.
AppEnvironment demoEnvironment(const FilePath &folder);

} // namespace tidlo
