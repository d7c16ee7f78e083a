#include "scanner/ScanSteps.h"

#include "scanner/RuleTest.h"

namespace tidlo {

using testing::_;
using testing::Property;

namespace {

using ScanSteps = RuleTest;

} // namespace

TEST_F(ScanSteps, HandTheStopOfTheScanToEverySearchAndEveryMeasurement)
{
    home.folder("Downloads"); // Without this folder, there would be nothing to measure for it.
    std::stop_source scan;
    scan.request_stop();
    const auto isStopped = Property(&std::stop_token::stop_requested, true);
    EXPECT_CALL(files, enumerate(_, isStopped)).Times(2);         // Project folders and large files.
    EXPECT_CALL(files, allocatedSizes(_, isStopped, _)).Times(5); // Chats and their caches, caches, downloads, copies.

    ScanHarvest harvest;
    for (const ScanStep &step : scanSteps)
        step.run({.files = files, .home = home.path(), .stop = scan.get_token()}, harvest);
}

} // namespace tidlo
