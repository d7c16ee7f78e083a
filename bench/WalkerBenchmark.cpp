// The cost of the walker's parts.

#include "platform/DirectoryWalker.h"
#include "platform/Paths.h"
#include "support/TemporaryHome.h"

#include <benchmark/benchmark.h>

namespace tidlo {

namespace {

constexpr int folders = 1'000;
constexpr int filesInEach = 8;

const TemporaryHome &tree()
{
    static const TemporaryHome home(TemporaryHome::parentInMemory());
    static const bool isMade = [] {
        for (int folder = 0; folder < folders; ++folder)
            for (int file = 0; file < filesInEach; ++file)
                home.file("part" + QByteArray::number(folder % 10) + "/folder" + QByteArray::number(folder) + "/file" +
                              QByteArray::number(file),
                          100);
        return true;
    }();
    Q_UNUSED(isMade);
    return home;
}

void AllocatedSizes(benchmark::State &state)
{
    const DirectoryWalker walker(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(walker.allocatedSizes({tree().path()}, {}));
    state.SetItemsProcessed(state.iterations() * folders * (filesInEach + 1));
}
BENCHMARK(AllocatedSizes)->ArgName("workers")->Arg(1)->Arg(2)->Arg(4)->Arg(8)->UseRealTime();

void EnumerateFolders(benchmark::State &state)
{
    const DirectoryWalker walker(static_cast<int>(state.range(0)));
    const DeepEnumeration enumeration{.roots = {tree().path()},
                                      .visit = [](const EnumeratedEntry &) { return Visit{}; }};
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(walker.enumerate(enumeration, {}));
    state.SetItemsProcessed(state.iterations() * folders * (filesInEach + 1));
}
BENCHMARK(EnumerateFolders)->ArgName("workers")->Arg(1)->Arg(8)->UseRealTime();

void SizeOfOneFile(benchmark::State &state)
{
    const FilePath file = tree() / "part0/folder0/file0";
    const DirectoryWalker walker;
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(walker.allocatedSizes({file}, {}));
}
BENCHMARK(SizeOfOneFile);

void PackageName(benchmark::State &state)
{
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(isPackageName("some.long-folder-name"));
}
BENCHMARK(PackageName);

} // namespace

} // namespace tidlo

BENCHMARK_MAIN();
