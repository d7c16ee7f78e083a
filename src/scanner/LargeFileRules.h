#pragma once

#include "platform/FileManager.h"
#include "scanner/Finding.h"

namespace tidlo {

/// Files of at least 100 MiB beneath the folders where people keep theirs, modified more than 60 days before \a now:
/// one candidate, also when there are none. The length of a file decides, its allocated size is what counts as its
/// bytes. What lies beneath a "node_modules" or ".git" folder, wherever that stands on the path, is left out. A
/// requested stop ends the search soon, with what was found until then.
QList<Finding> oldLargeFilesCandidates(const FileManager &files, const FilePath &home, FileTime now,
                                       std::stop_token stop = {});

} // namespace tidlo
