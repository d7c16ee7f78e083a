#include "cli/CleanupSelection.h"

#include "cli/FindingsText.h"
#include "model/CheckedSum.h"
#include "platform/ByteCountFormatter.h"

#include <QSet>

namespace tidlo {

QString CleanupSelection::text() const
{
    return QStringLiteral("%1 (%2)").arg(countText(paths.size(), QStringLiteral("item")), byteCountText(bytes));
}

CleanupSelection cleanupSelection(const QList<CleanupCandidate> &candidates, const QList<CleanupRisk> &risks)
{
    CleanupSelection selection;
    QSet<FilePath> known;
    for (const CleanupCandidate &candidate : candidates) {
        const bool isAskedFor = risks.isEmpty() || risks.contains(candidate.risk);
        if (!candidate.selected || candidate.risk == CleanupRisk::never || !isAskedFor)
            continue;
        selection.candidates.append(candidate);
        selection.bytes = checkedSum(selection.bytes, candidate.bytes);
        for (const FilePath &path : candidate.paths) {
            if (!known.contains(path))
                selection.paths.append(path);
            known.insert(path);
        }
    }
    return selection;
}

} // namespace tidlo
