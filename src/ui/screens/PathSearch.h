#pragma once

#include "model/FilePath.h"

#include <QString>

namespace tidlo {

/// What is searched of a path: its text as it is shown, in UTF-8, without a difference of case. Any thread. Takes some
/// microseconds, so many are better made before anyone waits.
QByteArray searchableText(const FilePath &path);

/// Whether \a path needs such a text. One of plain letters is searched as it is.
bool needsSearchableText(const FilePath &path);

/// Finds the paths that contain a text as they are shown, whatever the case of its letters. Made for many paths.
class PathSearch final
{
public:
    explicit PathSearch(const QString &given); ///< An empty text is contained in all.

    /// Looks into \a text, which is made of \a path if it is missing and needed.
    bool finds(const FilePath &path, const QByteArray &text = {});

private:
    QByteArray wanted; ///< As in a searchable text.
    FilePath lowered;  ///< Kept between two searches, for its memory.
};

} // namespace tidlo
