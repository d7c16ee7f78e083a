#pragma once

#include "model/ScanTotals.h"
#include "platform/FileManager.h"

namespace tidlo {

/// The figures of the volume that holds \a home, as its volume tells them or else its file system. What neither tells
/// is 0, and so is everything that only a scan can know.
ScanTotals diskTotals(const FileManager &files, const FilePath &home);

} // namespace tidlo
