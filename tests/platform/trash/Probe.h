#pragma once

#include "model/FilePath.h"
#include "support/TemporaryHome.h"

#include <string>
#include <vector>

namespace tidlo {

/// One run of trash_probe.
struct ProbeRun
{
    std::vector<FilePath> paths;
    FilePath home;
    FilePath dataHome{};        ///< Value of XDG_DATA_HOME; unset where empty.
    bool withoutRights = false; ///< As a user whom folder permissions hold back.
    FilePath workingFolder{};
};

struct ProbeResult
{
    bool allMoved = false;          ///< What the exit status says.
    std::vector<std::string> lines; ///< All that was printed.
};

/// Runs the probe, and returns when it has ended.
ProbeResult probe(const ProbeRun &run);

/// Starts \a runs all at once, and returns when they have ended.
std::vector<ProbeResult> probeAtOnce(const std::vector<ProbeRun> &runs);

/// Gives a home, with all that is in it, to the user that a probe without rights runs as.
void giveAway(const TemporaryHome &home);

} // namespace tidlo
