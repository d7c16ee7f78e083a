#pragma once

#include "platform/TrashContents.h"

#include <QDateTime>

namespace tidlo {

/// The moment that \a word names: a time before \a now ("10min", "2h", "3d"), the beginning of that day ("today"), or a
/// date, with or without a time of day, in local time unless it names another zone. Nothing if it is none of these.
std::optional<FileTime> momentOf(const QString &word, const QDateTime &now);

/// What is to be put back.
struct RestoreSelection
{
    QList<ListedItem> items;  ///< One for each place, the last moved; those that hold others come first.
    QList<ListedItem> others; ///< Further ones of the same places, which stay.
    QList<FilePath> missing;  ///< Named places where nothing was, nor beneath them.

    /// "14 items (3.2 GB)".
    QString text() const;
};

/// What was at or beneath one of \a places, whichever links its record leads through, or all if there are none; from \a
/// listed, which has the last moved first.
RestoreSelection restoreSelection(const QList<ListedItem> &listed, const QList<FilePath> &places);

} // namespace tidlo
