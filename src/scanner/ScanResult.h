#pragma once

#include "model/ScanSnapshot.h"

#include <QHash>

namespace tidlo {

/// Bytes on the disk of each path of a candidate, in the order of its paths, by the candidate's identifier.
using PathSizes = QHash<QUuid, QList<qint64>>;

/// What one scan gives: its record, and beside it what a closer look at its candidates needs.
struct ScanResult
{
    ScanSnapshot snapshot;
    PathSizes sizes; ///< Of every candidate of the snapshot.
};

} // namespace tidlo
