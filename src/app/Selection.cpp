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
    const QList<CleanupCandidate> &candidates = read(state.candidates);
    const auto found = std::ranges::find(candidates, candidate.id, &CleanupCandidate::id);
    if (candidate.risk == CleanupRisk::never || found == candidates.end())
        return;
    const qsizetype index = found - candidates.begin();
    Q_EMIT willAnimate(toggleAnimation);
    publish(&AppViewModel::candidatesChanged, [&] {
        CleanupCandidate &toggled = state.candidates[index];
        toggled.selected = !toggled.selected;
        if (!toggled.selected || !toggled.paths.isEmpty() || !state.ticks.areUsed())
            return;
        state.ticks.tickAll(scannedCandidate(toggled.id), state.scanned);
        replaceCandidates();
    });
}

CleanupCandidate AppViewModel::scannedCandidate(const QUuid &id) const
{
    const QList<CleanupCandidate> &scanned = read(state.scanned).snapshot.candidates;
    const auto found = std::ranges::find(scanned, id, &CleanupCandidate::id);
    return found == scanned.end() ? CleanupCandidate() : *found;
}

QList<bool> AppViewModel::ticksOf(const QUuid &id) const
{
    const QList<CleanupCandidate> &candidates = read(state.candidates);
    const auto found = std::ranges::find(candidates, id, &CleanupCandidate::id);
    const CleanupCandidate scanned = scannedCandidate(id);
    if (found == candidates.end() || !found->selected)
        return QList<bool>(scanned.paths.size(), false);
    return state.ticks.of(scanned, state.scanned);
}

Forecast AppViewModel::forecast(const QUuid &id) const
{
    const QList<CleanupCandidate> &candidates = read(state.candidates);
    const auto found = std::ranges::find(candidates, id, &CleanupCandidate::id);
    return found == candidates.end() ? Forecast() : forecastOf(state.scanned, {*found});
}

/// Replaces each candidate by its ticked items.
void AppViewModel::replaceCandidates()
{
    for (CleanupCandidate &candidate : state.candidates)
        candidate = state.ticks.left(candidate, scannedCandidate(candidate.id), state.scanned);
}

/// A candidate without a ticked item is deselected.
void AppViewModel::deselectEmptied()
{
    for (const CleanupCandidate &candidate : selectedCandidates()) {
        if (candidate.paths.isEmpty() && !scannedCandidate(candidate.id).paths.isEmpty())
            toggleCandidate(candidate);
    }
}

bool AppViewModel::spare(const FilePath &path)
{
    const FilePath place = read(state.scanned).placeOf(path);
    if (!environment.defaults->addPath(UserDefaults::spared, place))
        return false;
    PlaceSet spared;
    spared.insert(place);
    const QList<CleanupCandidate> before = state.scanned.snapshot.candidates;
    publish(&AppViewModel::candidatesChanged, [&] {
        leaveOut(state.scanned, spared);
        QSet<QUuid> gone;
        for (const CleanupCandidate &candidate : before)
            gone.insert(candidate.id);
        for (const CleanupCandidate &candidate : state.scanned.snapshot.candidates)
            gone.remove(candidate.id);
        state.candidates.removeIf([&](const CleanupCandidate &candidate) { return gone.contains(candidate.id); });
        replaceCandidates();
    });
    deselectEmptied();
    return true;
}

QList<ItemElsewhere> AppViewModel::tickItems(const QUuid &id, const QList<int> &items, bool ticked)
{
    const CleanupCandidate scanned = scannedCandidate(id);
    const auto isMeant = [&](const CleanupCandidate &candidate) { return candidate.id == id; };
    const auto current = std::ranges::find_if(read(state.candidates), isMeant);
    if (current == state.candidates.end() || scanned.risk == CleanupRisk::never || (!ticked && !current->selected))
        return {};
    const bool isSelected = current->selected;
    const QList<CleanupCandidate> before = state.candidates;
    publish(&AppViewModel::candidatesChanged, [&] {
        if (!ticked)
            state.ticks.untick(scanned, items, state.scanned);
        else if (isSelected)
            state.ticks.tick(scanned, items, state.scanned);
        else
            state.ticks.tickAlone(scanned, items, state.scanned);
        replaceCandidates();
    });
    const QList<CleanupCandidate> after = state.candidates;
    if (ticked && !isSelected)
        toggleCandidate(*std::ranges::find_if(after, isMeant));
    deselectEmptied();
    QList<ItemElsewhere> others;
    for (qsizetype i = 0; i < after.size(); ++i) {
        if (!isMeant(after.at(i)))
            others += goneFrom(before.at(i), after.at(i));
    }
    return others;
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
