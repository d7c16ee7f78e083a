// The cost of the state owner's figures and operations with a hundred candidates of ten thousand paths each, with a
// view that follows. No path may be copied, so nothing here may grow with the number of paths.

#include "app/AppViewModel.h"

#include <QCoreApplication>
#include <QVariant>

#include <benchmark/benchmark.h>

namespace tidlo {

namespace {

constexpr int candidateCount = 100;
constexpr int pathsInEach = 10'000;

CleanupCandidate candidate(int number)
{
    CleanupCandidate candidate;
    candidate.title = QStringLiteral("Finding %1").arg(number);
    candidate.category = static_cast<CleanupCategory>(number % 6);
    candidate.risk = static_cast<CleanupRisk>(number % 3);
    candidate.bytes = number;
    candidate.selected = number % 2 == 0;
    for (int path = 0; path < pathsInEach; ++path)
        candidate.paths.append("/home/me/Sites/" + FilePath::number(number) + "/" + FilePath::number(path));
    return candidate;
}

/// A state owner with the same candidates for each benchmark.
class Model final
{
public:
    Model()
    {
        QList<CleanupCandidate> candidates;
        for (int number = 0; number < candidateCount; ++number)
            candidates.append(candidate(number));
        model.showResults({.snapshot = {.totals = {}, .candidates = candidates}, .sizes = {}});
    }

    AppViewModel *operator->() { return &model; }

private:
    static AppEnvironment environment()
    {
        AppEnvironment environment;
        environment.explain = [](QList<CleanupCandidate>, ExplainWatch) -> QCoro::Task<std::optional<QString>> {
            co_return std::nullopt;
        };
        return environment;
    }

    AppViewModel model{environment()};
};

template <typename Read>
void measure(benchmark::State &state, Read read)
{
    Model model;
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(read(model));
}

void CategoryBytes(benchmark::State &state)
{
    measure(state, [](Model &model) { return model->categoryBytes(CleanupCategory::caches); });
}
BENCHMARK(CategoryBytes);

void VisibleCandidates(benchmark::State &state)
{
    measure(state, [](Model &model) { return model->visibleCandidates(); });
}
BENCHMARK(VisibleCandidates);

void VisibleCandidatesOfOneRisk(benchmark::State &state)
{
    measure(state, [](Model &model) {
        model->setSelectedFilter(CleanupRisk::review);
        return model->visibleCandidates();
    });
}
BENCHMARK(VisibleCandidatesOfOneRisk);

void SelectedCandidates(benchmark::State &state)
{
    measure(state, [](Model &model) { return model->selectedCandidates(); });
}
BENCHMARK(SelectedCandidates);

void SelectedBytes(benchmark::State &state)
{
    measure(state, [](Model &model) { return model->selectedBytes(); });
}
BENCHMARK(SelectedBytes);

void ProtectedCount(benchmark::State &state)
{
    measure(state, [](Model &model) { return model->protectedCount(); });
}
BENCHMARK(ProtectedCount);

void CandidatesByName(benchmark::State &state)
{
    measure(state, [](Model &model) { return model->property("candidates"); });
}
BENCHMARK(CandidatesByName);

/// The last candidate, while a view holds the former list: the most expensive case.
void Toggle(benchmark::State &state)
{
    Model model;
    const CleanupCandidate last = model->candidates().constLast();
    QList<CleanupCandidate> shown = model->candidates();
    QObject::connect(model.operator->(), &AppViewModel::candidatesChanged, [&] { shown = model->candidates(); });
    for ([[maybe_unused]] auto turn : state)
        model->toggleCandidate(last);
    benchmark::DoNotOptimize(shown);
}
BENCHMARK(Toggle);

} // namespace

} // namespace tidlo

int main(int count, char **arguments)
{
    using namespace tidlo;
    const QCoreApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
