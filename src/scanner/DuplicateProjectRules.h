#pragma once

#include "platform/FileManager.h"
#include "scanner/Finding.h"

namespace tidlo {

/// The name that a project folder has in common with its copies: lower-cased, without what copies, backups, dates and
/// numbers append. A \a name that is not valid UTF-8 keeps each of its foreign bytes apart from every other.
QString normalizedProjectName(QByteArrayView name);

/// Folders beside one another in the local web server's folders whose names differ by a copy's suffix alone: one
/// candidate with all but the last modified of each such group, newest first; empty when there are none. Where dates
/// are equal, the one listed first counts as newer, and a folder without a date is the oldest. Groups come in the order
/// in which their first folder is listed.
QList<Finding> duplicateProjectCandidates(const FileManager &files, const FilePath &home, std::stop_token stop = {});

} // namespace tidlo
