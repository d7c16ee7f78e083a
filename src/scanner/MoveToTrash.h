#pragma once

#include "model/CleanupCandidate.h"
#include "model/CleanupReport.h"
#include "platform/FileManager.h"
#include "platform/Places.h"

#include <functional>

namespace tidlo {

/// An item that was to be moved to the Trash and was not.
struct StayedItem
{
    FilePath path;
    QString reason; ///< A sentence for a person.

    bool operator==(const StayedItem &) const = default;
};

/// The result of moving candidates to the Trash: the record, and beside it what stayed and what can be put back.
struct Cleanup
{
    CleanupReport report;
    QList<StayedItem> stayed; ///< In the order in which they were tried.
    QList<TrashedItem> moved; ///< In the order in which they were moved.
};

/// Moves every path of \a candidates to the Trash, in order, and reads the disk again for the report. A candidate never
/// to be touched is counted and left alone. A leading "~" in a path stands for the home folder. Passed over are a path
/// where nothing exists, a link that leads nowhere, which stays, and a path that is, lies in or holds one of the
/// \a spared places. What is not moved is counted nowhere. Each moved path counts an even share of its candidate's
/// bytes; nothing is measured again. \a stopRequested is called before each path.
Cleanup moveToTrash(FileManager &files, const QList<CleanupCandidate> &candidates, const PlaceSet &spared,
                    const std::function<bool()> &stopRequested);

} // namespace tidlo
