#pragma once

#include "model/FilePath.h"
#include "platform/TrashOutcome.h"

#include <optional>

namespace tidlo {

/// A path as it names an item itself: without slashes at the end, which would follow a link. "/" stays.
FilePath pathOfItself(FilePath path);

/// What to tell instead of moving anything: \a path, without slashes at its end, cannot name one item. Nothing when it
/// can.
std::optional<TrashOutcome> refusalOfPath(const FilePath &path);

} // namespace tidlo
