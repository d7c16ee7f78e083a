#pragma once

#include "model/CleanupCandidate.h"
#include "platform/DeepEnumeration.h"

#include <QLatin1StringView>

/// What is fixed of a finding before anything is looked for: its texts and its grading.
struct CandidateTemplate
{
    QLatin1StringView title;
    QLatin1StringView detail;
    CleanupCategory category;
    CleanupRisk risk;
    bool selected = true;
};

/// The candidate for \a paths, whose allocated sizes are \a sizes. A sum beyond 64 bits stops the program.
CleanupCandidate makeCandidate(const CandidateTemplate &fixed, const QList<FilePath> &paths,
                               const QList<qint64> &sizes);

/// The candidate for those of \a items that were collected in \a group, in their order.
CleanupCandidate makeCandidate(const CandidateTemplate &fixed, const QList<CollectedItem> &items, int group);
