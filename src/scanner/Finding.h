#pragma once

#include "model/CleanupCandidate.h"
#include "platform/DeepEnumeration.h"

#include <QLatin1StringView>

namespace tidlo {

/// What a rule found: the record, and beside it what a closer look at the record needs.
struct Finding
{
    CleanupCandidate candidate;
    QList<qint64> sizes; ///< Bytes on the disk of each of the candidate's paths, in their order.
};

/// What is fixed of a finding before anything is looked for: its texts and its grading.
struct FindingTemplate
{
    QLatin1StringView title;
    QLatin1StringView detail;
    CleanupCategory category;
    CleanupRisk risk;
    bool selected = true;
};

/// The finding of \a paths, whose allocated sizes are \a sizes, in the same order. A sum beyond 64 bits stops the
/// program.
Finding makeFinding(const FindingTemplate &fixed, const QList<FilePath> &paths, const QList<qint64> &sizes);

/// The finding of those of \a items that were collected in \a group, in their order.
Finding makeFinding(const FindingTemplate &fixed, const QList<CollectedItem> &items, int group);

} // namespace tidlo
