#pragma once

#include "platform/FileManager.h"
#include "scanner/Finding.h"

namespace tidlo {

/// Installers, archives and videos directly in the Downloads folder, modified more than 45 days before \a now: one
/// candidate, or none when the folder cannot be listed. A file without a date is not old.
QList<Finding> downloadCandidates(const FileManager &files, const FilePath &home, FileTime now,
                                  std::stop_token stop = {});

} // namespace tidlo
