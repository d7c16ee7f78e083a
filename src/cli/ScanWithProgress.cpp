#include "cli/ScanWithProgress.h"

#include "cli/ProgressLine.h"
#include "model/TidloPercent.h"

namespace tidlo {

ScanSnapshot scanWithProgress(FileSizeScanner &scanner)
{
    ProgressLine line;
    const ScanResult result = QCoro::waitFor(scanner.scan([&line](double fraction, const QString &label) {
        line.show(tidloPercent(fraction).rightJustified(4) + QStringLiteral("  ") + label);
    }));
    return result.snapshot;
}

} // namespace tidlo
