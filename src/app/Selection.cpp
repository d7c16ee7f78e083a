#include "app/AppViewModel.h"
#include "model/CheckedSum.h"

#include <algorithm>
#include <functional>

namespace tidlo {

namespace {

template <typename Condition>
QList<CleanupCandidate> candidatesWhere(const QList<CleanupCandidate> &candidates, Condition condition)
{
    QList<CleanupCandidate> matching;
    std::ranges::copy_if(candidates, std::back_inserter(matching), condition);
    return matching;
}

template <typename Condition>
qint64 bytesWhere(const QList<CleanupCandidate> &candidates, Condition condition)
{
    qint64 sum = 0;
    for (const CleanupCandidate &candidate : candidates) {
        if (std::invoke(condition, candidate))
            sum = checkedSum(sum, candidate.bytes);
    }
    return sum;
}

} // namespace

void AppViewModel::toggleCandidate(const CleanupCandidate &candidate)
{
    constexpr SpringAnimation spring{.response = 0.24, .dampingFraction = 0.86, .blendDuration = 0};
    const QList<CleanupCandidate> &candidates = read(state.candidates);
    const auto found = std::ranges::find(candidates, candidate.id, &CleanupCandidate::id);
    if (candidate.risk == CleanupRisk::never || found == candidates.end())
        return;
    const qsizetype index = found - candidates.begin();
    Q_EMIT willAnimate(spring);
    publish(&AppViewModel::candidatesChanged, [&] {
        CleanupCandidate &toggled = state.candidates[index];
        toggled.selected = !toggled.selected;
    });
}

qint64 AppViewModel::categoryBytes(CleanupCategory category) const
{
    return bytesWhere(read(state.candidates),
                      [=](const CleanupCandidate &candidate) { return candidate.category == category; });
}

QList<CleanupCandidate> AppViewModel::visibleCandidates() const
{
    const std::optional<CleanupRisk> filter = selectedFilter();
    if (!filter)
        return candidates();
    return candidatesWhere(read(state.candidates),
                           [=](const CleanupCandidate &candidate) { return candidate.risk == *filter; });
}

QList<CleanupCandidate> AppViewModel::selectedCandidates() const
{
    return candidatesWhere(read(state.candidates), &CleanupCandidate::selected);
}

qint64 AppViewModel::selectedBytes() const
{
    return bytesWhere(read(state.candidates), &CleanupCandidate::selected);
}

qsizetype AppViewModel::protectedCount() const
{
    return std::ranges::count(read(state.candidates), CleanupRisk::never, &CleanupCandidate::risk);
}

} // namespace tidlo
