#pragma once

#include "model/CleanupCandidate.h"

namespace tidlo {

/// The findings that an explanation is asked for: the first eight, in order, or all of them if there are fewer.
QList<CleanupCandidate> explainedCandidates(const QList<CleanupCandidate> &candidates);

/// The question sent for \a candidates: a fixed text, then one block of metadata for each of them, with its first eight
/// paths. Every name is written as it is, line feeds included; bytes of a path that are not valid UTF-8 become U+FFFD,
/// since only text can be sent.
QString promptFor(const QList<CleanupCandidate> &candidates);

} // namespace tidlo
