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
    harvest.findings += developerCandidates(context);
}

void checkWhatsApp(const ScanContext &context, ScanHarvest &harvest)
{
    harvest.findings += whatsAppCandidates(context);
}

void checkCaches(const ScanContext &context, ScanHarvest &harvest)
{
    harvest.findings += cacheCandidates(context);
}

void checkOldFiles(const ScanContext &context, ScanHarvest &harvest)
{
    using Clock = std::chrono::system_clock;
    harvest.findings += downloadCandidates(context, Clock::now());
    harvest.findings += oldLargeFilesCandidates(context, Clock::now());
}

void findProjectCopies(const ScanContext &context, ScanHarvest &harvest)
{
    harvest.findings += duplicateProjectCandidates(context);
}

} // namespace tidlo
