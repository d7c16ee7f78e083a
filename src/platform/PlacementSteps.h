#pragma once

#include "model/FilePath.h"

#include <functional>

namespace tidlo {

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

} // namespace tidlo
