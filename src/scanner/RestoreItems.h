#pragma once

#include "platform/FileManager.h"
#include "scanner/MoveToTrash.h"

namespace tidlo {

/// What came of putting items back from the Trash.
struct Restoration
{
    QList<TrashedItem> restored; ///< In the order in which they were put back.
    QList<TrashedItem> left;     ///< The others, those that were not tried among them, in their order.
    QList<StayedItem> stayed;    ///< Of those, what was tried and why it stayed. Named by where it was.
};

/// Puts \a items back where they were, those first that hold others. \a stopRequested is asked before each.
Restoration restoreItems(FileManager &files, QList<TrashedItem> items, const std::function<bool()> &stopRequested);

} // namespace tidlo
