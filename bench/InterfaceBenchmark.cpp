// What a person waits for while looking into a finding of 100,000 items: to see it, to search it and to sort it. Each
// happens on the thread that draws, so each has to fit into one frame of 16 ms.

#include "fakes/FakeFileManager.h"
#include "support/WaitUntil.h"
#include "ui/screens/FoundItems.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <random>

namespace {

constexpr int itemCount = 100'000;

/// Measures at once: every item has some size.
std::shared_ptr<FileManager> filesOfAnySize()
{
    auto files = std::make_shared<testing::NiceMock<FakeFileManager>>("/home/me");
    ON_CALL(*files, allocatedSizes).WillByDefault([](const QList<FilePath> &paths, const std::stop_token &) {
        static std::minstd_rand random;
        QList<qint64> sizes;
        for (qsizetype i = 0; i < paths.size(); ++i)
            sizes.append(random());
        return sizes;
    });
    return files;
}

CleanupCandidate finding(const FilePath &folder)
{
    CleanupCandidate candidate;
    for (int number = 0; number < itemCount; ++number)
        candidate.paths.append("/home/me/Sites/project-" + FilePath::number(number / 100) + folder + "/packages/part-" +
                               FilePath::number(number) + "/node_modules");
    return candidate;
}

/// The items of one finding, all of them measured.
class Items final
{
public:
    explicit Items(const FilePath &folder = "/clients/Some Company/website")
    {
        app.setCandidates({finding(folder)});
        items.setApp(&app);
        inspect();
        bool isMeasured = false;
        QObject::connect(&items, &FoundItems::summaryChanged,
                         [&] { isMeasured = !items.summary().endsWith(QStringLiteral("measured")); });
        waitUntil([&isMeasured] { return isMeasured; });
        items.disconnect();
    }

    void inspect() { items.inspect(app.candidates().constFirst().id); }
    FoundItems *operator->() { return &items; }

private:
    static AppEnvironment environment()
    {
        AppEnvironment environment;
        environment.fileManager = filesOfAnySize();
        return environment;
    }

    AppViewModel app{environment()};
    FoundItems items;
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

/// The whole of one row, as often as a screen shows rows.
void ScreenOfRows(benchmark::State &state)
{
    Items items;
    for ([[maybe_unused]] auto turn : state) {
        for (int row = 0; row < 30; ++row) {
            benchmark::DoNotOptimize(items->data(items->index(row), FoundItems::PathRole));
            benchmark::DoNotOptimize(items->data(items->index(row), FoundItems::SizeRole));
        }
    }
}
BENCHMARK(ScreenOfRows)->Unit(benchmark::kMillisecond);

} // namespace

int main(int count, char **arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
