#pragma once

#include "model/CleanupCandidate.h"

#include <array>

namespace tidlo {

/// A candidate with a value in every field.
inline CleanupCandidate fullCandidate()
{
    CleanupCandidate candidate;
    candidate.id = QUuid::fromString(QStringLiteral("0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9"));
    candidate.title = QStringLiteral("Großes");
    candidate.detail = QStringLiteral("Comes back \"by itself\".");
    candidate.category = CleanupCategory::oldLargeFiles;
    candidate.risk = CleanupRisk::review;
    candidate.bytes = 9'007'199'254'740'993; // A double cannot hold it exactly.
    candidate.paths = {"/home/u/a", "/home/u/b"};
    candidate.selected = true;
    candidate.aiExplanation = QStringLiteral("Old.");
    return candidate;
}

/// One change for each field, in the order of the fields.
struct CandidateChange
{
    const char *field;
    void (*apply)(CleanupCandidate &candidate);
};

inline constexpr std::array candidateChanges{
    CandidateChange{"id", [](CleanupCandidate &candidate) { candidate.id = QUuid::createUuid(); }},
    CandidateChange{"title", [](CleanupCandidate &candidate) { candidate.title += QLatin1Char('!'); }},
    CandidateChange{"detail", [](CleanupCandidate &candidate) { candidate.detail.clear(); }},
    CandidateChange{"category", [](CleanupCandidate &candidate) { candidate.category = CleanupCategory::caches; }},
    CandidateChange{"risk", [](CleanupCandidate &candidate) { candidate.risk = CleanupRisk::never; }},
    CandidateChange{"bytes", [](CleanupCandidate &candidate) { ++candidate.bytes; }},
    CandidateChange{"paths", [](CleanupCandidate &candidate) { candidate.paths.swapItemsAt(0, 1); }},
    CandidateChange{"selected", [](CleanupCandidate &candidate) { candidate.selected = false; }},
    CandidateChange{"aiExplanation", [](CleanupCandidate &candidate) { candidate.aiExplanation.reset(); }},
};

} // namespace tidlo
