#pragma once

#include "model/CleanupCandidate.h"

namespace tidlo {

/// The findings to explain: the first eight, in order, or all if there are fewer.
QList<CleanupCandidate> explainedCandidates(const QList<CleanupCandidate> &candidates);

/// The question about \a candidates: a fixed text, then a block of metadata for each of them, with its first eight
/// paths. Names are unchanged, including line feeds; bytes of a path that are not valid UTF-8 become U+FFFD, since only
/// text can be sent.
QString promptFor(const QList<CleanupCandidate> &candidates);

} // namespace tidlo
