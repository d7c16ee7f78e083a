#pragma once

#include "model/FilePath.h"

#include <QString>

#include <functional>
#include <optional>

namespace tidlo {

/// Copies the item at \a source with everything beneath it, without following links, to \a destination, which must not
/// exist yet. Permissions and modification times are kept, and links keep their targets. Returns 0, or the errno of the
/// first failure, which ends it and leaves what had been copied until then.
int copyTree(const FilePath &source, const FilePath &destination);

/// Exchanges the items at two paths of one file system, of any kind, in one step: neither path is missing at any
/// moment. Returns 0, or the errno of what went wrong; see isExchangeUnknown().
int exchangeItems(const FilePath &one, const FilePath &other);

/// Whether an \a error of exchangeItems means that the system or the file system cannot exchange items at all.
bool isExchangeUnknown(int error);

/// The steps of a placement, so that a test can make each step fail. Each returns 0, or the errno of what went wrong.
struct PlacementSteps
{
    using OnTwo = std::function<int(const FilePath &from, const FilePath &to)>;

    OnTwo copy;     ///< As copyTree.
    OnTwo exchange; ///< As exchangeItems.
    OnTwo rename;
    std::function<int(const FilePath &path)> remove; ///< With its content.
};

/// The real steps.
PlacementSteps livePlacementSteps();

/// Replaces the item at \a destination, without following a link, by a copy of the application at \a source, with its
/// permissions, links and times. Returns nothing, or the system's message for what went wrong.
///
/// It is replaced only once the copy is complete, so there must be room for both. Whatever fails, and whenever the
/// program is killed, the old or the new one is there, complete. Only where the file system cannot exchange two items
/// in one step, it may be missing for a moment; if the old one then cannot be put back, the message says where it is.
/// Hidden leftovers of earlier placements beside the destination are removed once the new copy is in place. If the old
/// one cannot be removed, the message says so, and its rest stays hidden.
///
/// The source is never changed: nothing is done if the destination is the source, lies in it or holds it, or holds a
/// mounted volume. Blocks while it copies.
std::optional<QString> copyApplication(const FilePath &source, const FilePath &destination,
                                       const PlacementSteps &steps = livePlacementSteps());

} // namespace tidlo
