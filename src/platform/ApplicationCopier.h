#pragma once

#include "model/FilePath.h"

#include <QString>

#include <optional>

/// Replaces whatever lies at \a destination, a link not followed, by a copy of the application at \a source, with its
/// permissions, links and times. Gives nothing, or the system's own words for what went wrong; then what lay there is
/// as it was, and nothing is left of a copy that was begun. It is replaced once the copy is whole, so there must be
/// room for both; should the old one fail to go even so, what is left of it stays hidden beside the new. The source is
/// never changed: a destination that is the source, lies in it or holds it is left alone, and so is one that holds a
/// mounted volume. Blocks while it copies.
std::optional<QString> copyApplication(const FilePath &source, const FilePath &destination);
