#pragma once

#include "model/ScanSnapshot.h"
#include "scanner/Finding.h"
#include "scanner/ScanContext.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

namespace tidlo {

/// What the steps have found so far.
struct ScanHarvest
{
    ScanTotals disk;
    QList<Finding> findings; ///< In the order of the rules.
};

/// The stages of a scan, in order.
enum class ScanStage { diskUsage, projectFolders, whatsApp, caches, oldFiles, projectCopies };

/// One step of a scan: what is shown when it begins, and the function that adds to the harvest.
struct ScanStep
{
    ScanStage stage;
    double fraction; ///< The fraction done when it begins, from 0 to 1.
    QLatin1StringView label;
    void (*run)(const ScanContext &context, ScanHarvest &harvest); ///< Off the main thread.
};

// The functions of the steps.

void readDiskUsage(const ScanContext &context, ScanHarvest &harvest);
void findProjectFolders(const ScanContext &context, ScanHarvest &harvest);
void checkWhatsApp(const ScanContext &context, ScanHarvest &harvest);
void checkCaches(const ScanContext &context, ScanHarvest &harvest);
void checkOldFiles(const ScanContext &context, ScanHarvest &harvest);
void findProjectCopies(const ScanContext &context, ScanHarvest &harvest);

/// All steps, in order.
inline constexpr std::array scanSteps{
    ScanStep{ScanStage::diskUsage, 0.08, QLatin1StringView("Reading disk usage"), readDiskUsage},
    ScanStep{ScanStage::projectFolders, 0.18, QLatin1StringView("Finding project build & cache files"),
             findProjectFolders},
    ScanStep{ScanStage::whatsApp, 0.42, QLatin1StringView("Checking WhatsApp Desktop storage"), checkWhatsApp},
    ScanStep{ScanStage::caches, 0.56, QLatin1StringView("Checking user caches"), checkCaches},
    ScanStep{ScanStage::oldFiles, 0.72, QLatin1StringView("Checking old downloads & large untouched files"),
             checkOldFiles},
    ScanStep{ScanStage::projectCopies, 0.86, QLatin1StringView("Finding older project copies"), findProjectCopies},
};

/// What is shown at the end, when everything has been found, filtered, ordered and summed up.
struct ScanEnd
{
    double fraction = 1;
    QLatin1StringView label{"Ready"};
};

/// The fraction at which \a stage begins.
constexpr double fractionOf(ScanStage stage)
{
    return std::ranges::find(scanSteps, stage, &ScanStep::stage)->fraction;
}

} // namespace tidlo
