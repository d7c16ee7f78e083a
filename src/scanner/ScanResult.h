#pragma once

#include "model/ScanSnapshot.h"
#include "platform/Places.h"
#include "platform/WalkNotes.h"

#include <QHash>
#include <QSet>

namespace tidlo {

/// The bytes on the disk of each path of a candidate, in the order of its paths, by the candidate's identifier.
using PathSizes = QHash<QUuid, QList<qint64>>;

/// The result of one scan: its record, and beside it details for a closer look at its candidates.
struct ScanResult
{
    ScanSnapshot snapshot;
    PathSizes sizes;                             ///< Of every candidate of the snapshot.
    QHash<FilePath, FilePath> places{};          ///< The real places of listed paths that differ from their place.
    QHash<FilePath, QList<LinkedFile>> linked{}; ///< The files with several links in each listed path that has some.
    QSet<FilePath> refused{};                    ///< Listed paths that the Trash would refuse.
    UnreadFolders unread{};                      ///< Folders that no rule could read.
    bool sharesBlocks = false; ///< Whether the home's file system may share blocks in other ways than by links.
    QList<FilePath> leftOut{}; ///< What was not proposed because it is spared, in the order of the rules.

    FilePath placeOf(const FilePath &listed) const { return places.value(listed, listed); }
};

/// A listed path of a finding that holds another listed path.
struct HoldingItem
{
    FilePath path;
    qint64 bytes = 0; ///< On the disk.

    bool operator==(const HoldingItem &) const = default;
};

/// The listed paths of \a result that hold \a path, which it lists as well: each place once, the largest first.
QList<HoldingItem> holdersOf(const ScanResult &result, const FilePath &path);

/// Removes every path that is, lies in or holds one of \a spared from the candidates, and candidates that become empty.
/// The totals of the scan stay as they are.
void leaveOut(ScanResult &result, const PlaceSet &spared);

} // namespace tidlo
