#include "app/AppViewModel.h"

#include <algorithm>

namespace tidlo {

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

} // namespace tidlo
