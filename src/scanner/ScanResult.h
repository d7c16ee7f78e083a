#pragma once

#include "model/ScanSnapshot.h"
#include "platform/Places.h"
#include "platform/WalkNotes.h"

#include <QHash>
#include <QSet>

namespace tidlo {

/// Bytes on the disk of each path of a candidate, in the order of its paths, by the candidate's identifier.
using PathSizes = QHash<QUuid, QList<qint64>>;

/// What one scan gives: its record, and beside it what a closer look at its candidates needs.
struct ScanResult
{
    ScanSnapshot snapshot;
    PathSizes sizes;                             ///< Of every candidate of the snapshot.
    QHash<FilePath, FilePath> places{};          ///< Of those listed paths that are not their own place.
    QHash<FilePath, QList<LinkedFile>> linked{}; ///< In each listed path that has some, the files with several links.
    QSet<FilePath> refused{};                    ///< Listed paths that the Trash would leave.
    UnreadFolders unread{};                      ///< What no rule could read.
    bool sharesBlocks = false; ///< Whether the home's file system may share blocks in other ways than by links.
    QList<FilePath> leftOut{}; ///< What was not proposed since it was to be spared, in the order of the rules.

    FilePath placeOf(const FilePath &listed) const { return places.value(listed, listed); }
};

/// A path that a finding lists, and that holds another.
struct HoldingItem
{
    FilePath path;
    qint64 bytes = 0; ///< On the disk.

    bool operator==(const HoldingItem &) const = default;
};

/// What \a result lists that holds \a path, which it lists as well: each place once, the largest first.
QList<HoldingItem> holdersOf(const ScanResult &result, const FilePath &path);

/// Takes what is, lies in or holds one of \a spared out of the candidates, and the candidates that it leaves empty.
/// What was summed up of the scan stays.
void leaveOut(ScanResult &result, const PlaceSet &spared);

} // namespace tidlo
