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
    PathSizes sizes;                    ///< Of every candidate of the snapshot.
    QHash<FilePath, FilePath> places{}; ///< Of those listed paths that are not their own place.
    QList<FilePath> leftOut{};          ///< What was not proposed since it was to be spared, in the order of the rules.
};

} // namespace tidlo
