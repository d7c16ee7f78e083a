#pragma once

#include "model/ScanSnapshot.h"
#include "platform/FileManager.h"
#include "scanner/Finding.h"

#include <QLatin1StringView>

#include <array>
#include <stop_token>

namespace tidlo {

/// What the steps of one scan work with.
struct ScanContext
{
    const FileManager &files;
    FilePath home;
    std::stop_token stop;
};

/// What the steps have found so far.
struct ScanHarvest
{
    ScanTotals disk;
    QList<Finding> findings; ///< In the order of the rules.
};

/// One step of a scan: what is shown when it begins, and what it adds to the harvest.
struct ScanStep
{
    double fraction; ///< Done when it begins, from 0 to 1.
    QLatin1StringView label;
    void (*run)(const ScanContext &context, ScanHarvest &harvest); ///< Off the main thread.
};

/// All steps, in order.
extern const std::array<ScanStep, 6> scanSteps;

/// What is shown when everything has been found, filtered, ordered and summed up.
struct ScanEnd
{
    double fraction = 1;
    QLatin1StringView label{"Ready"};
};

} // namespace tidlo
