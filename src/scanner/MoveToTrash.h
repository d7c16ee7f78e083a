#pragma once

#include "model/CleanupCandidate.h"
#include "model/CleanupReport.h"
#include "platform/FileManager.h"

#include <functional>

/// Moves every path of \a candidates to the Trash, in order, and reads the disk anew for the report. A candidate never
/// to be touched is counted and left alone. A leading "~" in a path stands for the home folder. A path where nothing
/// exists, a link that leads nowhere included, is passed over, and what is not moved is counted nowhere. Each moved
/// path counts an even share of its candidate's bytes; nothing is measured again. \a stopRequested is asked before each
/// path.
CleanupReport moveToTrash(FileManager &files, const QList<CleanupCandidate> &candidates,
                          const std::function<bool()> &stopRequested);
