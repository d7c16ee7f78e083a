#pragma once

#include "platform/TrashContents.h"

#include <QDateTime>

namespace tidlo {

/// The moment that \a word tells: so long before \a now ("10min", "2h", "3d"), the beginning of that day ("today"), or
/// a date, with or without a time of day, in local time unless it names another zone. Nothing if it is none of these.
std::optional<FileTime> momentOf(const QString &word, const QDateTime &now);

/// What is to be put back.
struct RestoreSelection
{
    QList<ListedItem> items;  ///< Of each place one, the last moved; those first that hold others.
    QList<ListedItem> others; ///< Further ones of the same places, which stay.
    QList<FilePath> missing;  ///< Named places at and beneath which nothing was.

    /// "14 items (3.2 GB)".
    QString text() const;
};

/// Of \a listed, the last moved first, what was at or beneath one of \a places; all of it if there are none.
RestoreSelection restoreSelection(const QList<ListedItem> &listed, const QList<FilePath> &places);

} // namespace tidlo
