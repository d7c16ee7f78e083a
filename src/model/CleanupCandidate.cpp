#include "model/CleanupCandidate.h"

#include <QHashFunctions>

namespace tidlo {

size_t qHash(const CleanupCandidate &candidate, size_t seed) noexcept
{
    return qHashMulti(seed, candidate.id, candidate.title, candidate.detail, qToUnderlying(candidate.category),
                      qToUnderlying(candidate.risk), candidate.bytes, candidate.paths, candidate.selected,
                      candidate.aiExplanation.has_value(), candidate.aiExplanation.value_or(QString()));
}

} // namespace tidlo
