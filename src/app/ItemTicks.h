#pragma once

#include "platform/Places.h"
#include "scanner/ScanResult.h"

#include <QSet>

namespace tidlo {

/// An item that was removed from a finding because it was unticked in another one.
struct ItemElsewhere
{
    QString title; ///< Of the finding.
    FilePath path;
};

/// Which items of a scan's findings are unticked. An item unticked in one finding is unticked in all: the same place,
/// and whatever holds it. A value; the findings passed in must be those of one \a result.
class ItemTicks final
{
public:
    bool areUsed() const { return !unticked.isEmpty() || !passedOver.isEmpty(); }

    void untick(const CleanupCandidate &finding, const QList<int> &items, const ScanResult &result);
    /// Items inside of an item are ticked with it, in every finding.
    void tick(const CleanupCandidate &finding, const QList<int> &items, const ScanResult &result);
    /// The same, and all other items of this finding are unticked. Other findings may still move those.
    void tickAlone(const CleanupCandidate &finding, const QList<int> &items, const ScanResult &result);
    void tickAll(const CleanupCandidate &finding, const ScanResult &result);

    /// Whether each path of \a finding, as it was scanned, is ticked.
    QList<bool> of(const CleanupCandidate &finding, const ScanResult &result) const;

    /// \a candidate with only the ticked items of \a scanned, the same candidate as the scan found it; unchanged if the
    /// scan did not find it.
    CleanupCandidate left(const CleanupCandidate &candidate, const CleanupCandidate &scanned,
                          const ScanResult &result) const;

private:
    PlaceSet unticked;
    QHash<QUuid, QSet<FilePath>> passedOver; ///< The items of a finding that tickAlone() left unticked.
};

/// The items of \a before that are missing in \a after, the same finding later.
QList<ItemElsewhere> goneFrom(const CleanupCandidate &before, const CleanupCandidate &after);

} // namespace tidlo
