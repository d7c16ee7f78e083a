#pragma once

#include "platform/FileManager.h"
#include "scanner/Finding.h"

namespace tidlo {

/// Caches of browsers and developer tools that are made again when needed: one candidate, also when none exists. Only
/// known folders are listed, never the whole of the caches folder.
QList<Finding> cacheCandidates(const FileManager &files, const FilePath &home, std::stop_token stop = {});

} // namespace tidlo
