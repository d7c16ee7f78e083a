#pragma once

#include "platform/FileManager.h"
#include "scanner/MoveToTrash.h"

namespace tidlo {

/// The result of putting items back from the Trash.
struct Restoration
{
    QList<TrashedItem> restored; ///< In the order in which they were put back.
    QList<TrashedItem> left;     ///< The others in their order, including those that were not tried.
    QList<StayedItem> stayed;    ///< Those of \c left that were tried, by their former path, and why they stayed.
};

/// Puts \a items back where they were, a folder before what lies in it. \a stopRequested is called before each.
Restoration restoreItems(FileManager &files, QList<TrashedItem> items, const std::function<bool()> &stopRequested);

} // namespace tidlo
