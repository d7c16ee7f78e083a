#pragma once

#include "platform/PlacementSteps.h"

#include <QString>

#include <optional>

namespace tidlo {

/// Replaces whatever lies at \a destination, a link not followed, by a copy of the application at \a source, with its
/// permissions, links and times. Gives nothing, or the system's own words for what went wrong.
///
/// It is replaced once the copy is whole, so there must be room for both. Whatever fails, and whenever the program is
/// killed, the old one or the new one stands there, whole; only where the file system cannot let two items change
/// places at one moment may there be nothing for a moment, and if the old one cannot come back then, the words tell
/// where it lies. What an earlier placement left hidden beside the destination is removed once the new copy stands.
/// Should the old one fail to go, that is told, and what is left of it stays hidden.
///
/// The source is never changed: a destination that is the source, lies in it or holds it is left alone, and so is one
/// that holds a mounted volume. Blocks while it copies.
std::optional<QString> copyApplication(const FilePath &source, const FilePath &destination,
                                       const PlacementSteps &steps = livePlacementSteps());

} // namespace tidlo
