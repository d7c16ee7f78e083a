#pragma once

#include "model/FilePath.h"

#include <QString>

#include <functional>
#include <optional>

namespace tidlo {

/// Copies the item at \a source with everything beneath it, no link followed, to \a destination, where nothing may lie
/// yet. Permissions and modification times are kept, and links lead where they led. Gives 0, or the errno of the first
/// failure, which ends it and leaves what had been copied until then.
int copyTree(const FilePath &source, const FilePath &destination);

/// Exchanges the items at two paths of one file system, of whatever kind they are, in one step: at no time is there
/// nothing at either path. Gives 0, or the errno of what went wrong; see isExchangeUnknown().
int exchangeItems(const FilePath &one, const FilePath &other);

/// Whether an \a error of exchangeItems means that the system or the file system cannot do that at all.
bool isExchangeUnknown(int error);

/// What a placement does to the disk, step by step, so that a test can make each step fail. Each gives 0, or the errno
/// of what went wrong.
struct PlacementSteps
{
    using OnTwo = std::function<int(const FilePath &from, const FilePath &to)>;

    OnTwo copy;     ///< As copyTree.
    OnTwo exchange; ///< As exchangeItems.
    OnTwo rename;
    std::function<int(const FilePath &path)> remove; ///< With all that is in it.
};

/// The steps as the system takes them.
PlacementSteps livePlacementSteps();

/// Replaces whatever lies at \a destination, a link not followed, by a copy of the application at \a source, with its
/// permissions, links and times. Gives nothing, or the system's own words for what went wrong.
///
/// It is replaced once the copy is whole, so there must be room for both. Whatever fails, and whenever the program is
/// killed, the old one or the new one is there, whole. Only where the file system cannot exchange two items in one step
/// may there be nothing for a moment; if the old one cannot come back then, the words tell where it lies. What an
/// earlier placement left hidden beside the destination is removed once the new copy is in place. If the old one cannot
/// be removed, that is told, and what is left of it stays hidden.
///
/// The source is never changed: a destination that is the source, lies in it or holds it is left alone, and so is one
/// that holds a mounted volume. Blocks while it copies.
std::optional<QString> copyApplication(const FilePath &source, const FilePath &destination,
                                       const PlacementSteps &steps = livePlacementSteps());

} // namespace tidlo
