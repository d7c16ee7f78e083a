#pragma once

#include "platform/Places.h"
#include "scanner/ScanResult.h"

#include <QSet>

namespace tidlo {

/// An item that was taken out of a finding because it was unticked in another one.
struct ItemElsewhere
{
    QString title; ///< Of the finding.
    FilePath path;
};

/// Which items of the findings of a scan are unticked. What is unticked in one is unticked in all: the same place, and
/// whatever holds it. A value; the findings it is asked about are those of one \a result.
class ItemTicks final
{
public:
    bool areUsed() const { return !unticked.isEmpty() || !passedOver.isEmpty(); }

    void untick(const CleanupCandidate &finding, const QList<int> &items, const ScanResult &result);
    /// What lies in an item is ticked with it, in every finding.
    void tick(const CleanupCandidate &finding, const QList<int> &items, const ScanResult &result);
    /// The same, and no other item of this finding is moved. Other findings may still move those.
    void tickAlone(const CleanupCandidate &finding, const QList<int> &items, const ScanResult &result);
    void tickAll(const CleanupCandidate &finding, const ScanResult &result);

    /// Whether each path of \a finding, as it was scanned, is ticked.
    QList<bool> of(const CleanupCandidate &finding, const ScanResult &result) const;

    /// \a candidate with the ticked items of \a scanned, which is the same one as the scan found it; unchanged if the
    /// scan did not find it.
    CleanupCandidate left(const CleanupCandidate &candidate, const CleanupCandidate &scanned,
                          const ScanResult &result) const;

private:
    PlaceSet unticked;
    QHash<QUuid, QSet<FilePath>> passedOver; ///< Items of a finding of which only others were ticked.
};

/// The items that \a before has and \a after, the same finding later, has not.
QList<ItemElsewhere> goneFrom(const CleanupCandidate &before, const CleanupCandidate &after);

} // namespace tidlo
