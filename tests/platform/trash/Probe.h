#pragma once

#include "model/FilePath.h"
#include "support/TemporaryHome.h"

#include <string>
#include <vector>

namespace tidlo {

/// Moves paths to the Trash in a process of its own, with the same call as the application.
struct ProbeRun
{
    std::vector<FilePath> paths;
    FilePath home;
    FilePath dataHome{};        ///< The value of XDG_DATA_HOME; unset if empty.
    bool withoutRights = false; ///< Whether to run as a user who is subject to folder permissions.
    FilePath workingFolder{};
};

struct ProbeResult
{
    bool allMoved = false;
    std::vector<std::string>
        lines; ///< For each path "moved", "gone", "refused: why", "failed: why" or "another moved: why".
};

/// Runs the probe, and returns when it has ended.
ProbeResult probe(const ProbeRun &run);

/// Starts all \a runs at the same time, and returns when they have ended.
std::vector<ProbeResult> probeAtOnce(const std::vector<ProbeRun> &runs);

/// Gives a home folder, with everything in it, to the user of probes without rights.
void giveAway(const TemporaryHome &home);

} // namespace tidlo
