#include "scanner/ScanSteps.h"

#include "scanner/CacheRules.h"
#include "scanner/DiskTotals.h"
#include "scanner/DownloadRules.h"
#include "scanner/DuplicateProjectRules.h"
#include "scanner/LargeFileRules.h"
#include "scanner/ProjectFolderRules.h"
#include "scanner/ScanSummary.h"
#include "scanner/WhatsAppRules.h"

namespace {

void readDiskUsage(const ScanContext &context, ScanSnapshot &snapshot)
{
    snapshot.totals = diskTotals(context.files, context.home);
}

void findProjectFolders(const ScanContext &context, ScanSnapshot &snapshot)
{
    snapshot.candidates += developerCandidates(context.files, context.home, context.stop);
}

void checkWhatsApp(const ScanContext &context, ScanSnapshot &snapshot)
{
    snapshot.candidates += whatsAppCandidates(context.files, context.home, context.stop);
}

void checkCaches(const ScanContext &context, ScanSnapshot &snapshot)
{
    snapshot.candidates += cacheCandidates(context.files, context.home, context.stop);
}

void checkOldFiles(const ScanContext &context, ScanSnapshot &snapshot)
{
    using Clock = std::chrono::system_clock;
    snapshot.candidates += downloadCandidates(context.files, context.home, Clock::now(), context.stop);
    snapshot.candidates += oldLargeFilesCandidates(context.files, context.home, Clock::now(), context.stop);
}

/// The last rule: all findings are there, so the snapshot is completed as well.
void findProjectCopiesAndSummarize(const ScanContext &context, ScanSnapshot &snapshot)
{
    snapshot.candidates += duplicateProjectCandidates(context.files, context.home, context.stop);
    snapshot = summarized(snapshot.totals, snapshot.candidates);
}

void doNothing(const ScanContext &, ScanSnapshot &) {}

} // namespace

const std::array<ScanStep, 7> scanSteps{{
    {0.08, QLatin1StringView("Reading disk usage"), readDiskUsage},
    {0.18, QLatin1StringView("Finding project build & cache files"), findProjectFolders},
    {0.42, QLatin1StringView("Checking WhatsApp Desktop storage"), checkWhatsApp},
    {0.56, QLatin1StringView("Checking user caches"), checkCaches},
    {0.72, QLatin1StringView("Checking old downloads & large untouched files"), checkOldFiles},
    {0.86, QLatin1StringView("Finding older project copies"), findProjectCopiesAndSummarize},
    {1.0, QLatin1StringView("Ready"), doNothing},
}};
