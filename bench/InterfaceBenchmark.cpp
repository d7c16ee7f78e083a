// How long a person waits with a finding of 100,000 items: to open the list, to search it and to sort it. Each of these
// runs on the thread that draws, so it must fit into one frame of 16 ms.

#include "ui/screens/FoundItems.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

namespace tidlo {

namespace {

constexpr int itemCount = 100'000;

CleanupCandidate finding(const FilePath &folder)
{
    CleanupCandidate candidate;
    for (int number = 0; number < itemCount; ++number)
        candidate.paths.append("/home/me/Sites/project-" + FilePath::number(number / 100) + folder + "/packages/part-" +
                               FilePath::number(number) + "/node_modules");
    return candidate;
}

/// The items of one finding, with any sizes.
class Items final
{
public:
    explicit Items(const FilePath &folder = "/clients/Some Company/website")
    {
        const CleanupCandidate many = finding(folder);
        std::minstd_rand random;
        QList<qint64> sizes(many.paths.size());
        std::ranges::generate(sizes, random);
        app.showResults({.snapshot = {.totals = {}, .candidates = {many}}, .sizes = {{many.id, sizes}}});
        inspect();
    }

    void inspect() { items.inspect(app.candidates().constFirst().id); }
    FoundItems *operator->() { return &items; }

private:
    AppViewModel app;
    FoundItems items{app};
};

void Inspect(benchmark::State &state)
{
    Items items;
    for ([[maybe_unused]] auto turn : state) {
        items.inspect();
        state.PauseTiming();
        items->clear();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(Inspect)->Unit(benchmark::kMillisecond);

void search(benchmark::State &state, Items &items, std::initializer_list<QString> texts)
{
    const QString *text = texts.begin();
    for ([[maybe_unused]] auto turn : state) {
        items->setFilter(*text);
        if (++text == texts.end())
            text = texts.begin();
    }
}

void SearchForWhatAllContain(benchmark::State &state)
{
    Items items;
    search(state, items, {QStringLiteral("n"), QStringLiteral("node")});
}
BENCHMARK(SearchForWhatAllContain)->Unit(benchmark::kMillisecond);

void SearchForWhatNoneContains(benchmark::State &state)
{
    Items items;
    search(state, items, {QStringLiteral("notes"), QStringLiteral("größer")});
}
BENCHMARK(SearchForWhatNoneContains)->Unit(benchmark::kMillisecond);

void SearchAmongNamesOfOtherLetters(benchmark::State &state)
{
    Items items("/Документы/Проекты");
    search(state, items, {QStringLiteral("проект"), QStringLiteral("node")});
}
BENCHMARK(SearchAmongNamesOfOtherLetters)->Unit(benchmark::kMillisecond);

void LargestFirst(benchmark::State &state)
{
    Items items;
    for ([[maybe_unused]] auto turn : state) {
        items->setLargestFirst(true);
        state.PauseTiming();
        items->setLargestFirst(false);
        state.ResumeTiming();
    }
}
BENCHMARK(LargestFirst)->Unit(benchmark::kMillisecond);

/// All data of one row, for as many rows as a screen shows.
void ScreenOfRows(benchmark::State &state)
{
    Items items;
    for ([[maybe_unused]] auto turn : state) {
        for (int row = 0; row < 30; ++row) {
            benchmark::DoNotOptimize(items->data(items->index(row), FoundItems::PathRole));
            benchmark::DoNotOptimize(items->data(items->index(row), FoundItems::DetailRole));
        }
    }
}
BENCHMARK(ScreenOfRows)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tidlo

int main(int count, char **arguments)
{
    using namespace tidlo;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
