#pragma once

#include "platform/TrashContents.h"

#include <QDateTime>

namespace tidlo {

/// The moment that \a word means: a time before \a now ("10min", "2h", "3d"), the beginning of that day ("today"), or a
/// date, with or without a time of day, in local time unless it names another zone. Nothing if it is none of these.
std::optional<FileTime> momentOf(const QString &word, const QDateTime &now);

/// The items to put back.
struct RestoreSelection
{
    QList<ListedItem> items;  ///< One for each place, the one moved last; folders come before what lies in them.
    QList<ListedItem> others; ///< Further items of the same places, which stay.
    QList<FilePath> missing;  ///< Requested places where nothing was, at them or beneath them.

    /// "14 items (3.2 GB)".
    QString text() const;
};

/// The items that were at or beneath one of \a places, whatever links their records lead through, or all items if there
/// are no places; from \a listed, which has the last moved item first.
RestoreSelection restoreSelection(const QList<ListedItem> &listed, const QList<FilePath> &places);

} // namespace tidlo
