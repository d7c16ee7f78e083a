#pragma once

#include "model/FilePath.h"

#include <QString>

namespace tidlo {

/// The text of a path that a search looks into: as it is shown, in UTF-8, in lower case. Any thread. Takes some
/// microseconds, so make many of them in advance.
QByteArray searchableText(const FilePath &path);

/// Whether \a path needs a separate search text. A path of plain ASCII characters is searched directly.
bool needsSearchableText(const FilePath &path);

/// Finds the paths whose shown text contains a given text, ignoring case. Made to search many paths.
class PathSearch final
{
public:
    explicit PathSearch(const QString &given); ///< An empty text is found in every path.

    /// Whether \a text, the search text of \a path, contains the wanted one. If \a text is missing and needed, it is
    /// made here.
    bool finds(const FilePath &path, const QByteArray &text = {});

private:
    QByteArray wanted; ///< As in a searchable text.
    FilePath lowered;  ///< Kept between two calls, to reuse its memory.
};

} // namespace tidlo
