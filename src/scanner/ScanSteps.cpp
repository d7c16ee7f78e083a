#include "scanner/ScanSteps.h"

#include "scanner/FindingRules.h"
#include "scanner/ScanSummary.h"

namespace tidlo {

void readDiskUsage(const ScanContext &context, ScanHarvest &harvest)
{
    harvest.disk = diskTotals(context.files, context.home);
}

void findProjectFolders(const ScanContext &context, ScanHarvest &harvest)
{
    harvest.findings += developerCandidates(context.files, context.home, context.stop);
}

void checkWhatsApp(const ScanContext &context, ScanHarvest &harvest)
{
    harvest.findings += whatsAppCandidates(context.files, context.home, context.stop);
}

void checkCaches(const ScanContext &context, ScanHarvest &harvest)
{
    harvest.findings += cacheCandidates(context.files, context.home, context.stop);
}

void checkOldFiles(const ScanContext &context, ScanHarvest &harvest)
{
    using Clock = std::chrono::system_clock;
    harvest.findings += downloadCandidates(context.files, context.home, Clock::now(), context.stop);
    harvest.findings += oldLargeFilesCandidates(context.files, context.home, Clock::now(), context.stop);
}

void findProjectCopies(const ScanContext &context, ScanHarvest &harvest)
{
    harvest.findings += duplicateProjectCandidates(context.files, context.home, context.stop);
}

} // namespace tidlo
