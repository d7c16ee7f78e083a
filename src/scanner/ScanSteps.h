#pragma once

#include "model/ScanSnapshot.h"
#include "platform/FileManager.h"

#include <QLatin1StringView>

#include <array>
#include <stop_token>

/// What the steps of one scan work with.
struct ScanContext
{
    const FileManager &files;
    FilePath home;
    std::stop_token stop;
};

/// One step of a scan: what is shown when it begins, and what it adds to the snapshot.
struct ScanStep
{
    double fraction; ///< Done when it begins, from 0 to 1.
    QLatin1StringView label;
    void (*run)(const ScanContext &context, ScanSnapshot &snapshot); ///< Off the main thread.
};

/// All steps, in order. The snapshot is complete before the last one is shown.
extern const std::array<ScanStep, 7> scanSteps;
