#pragma once

#include "model/FilePath.h"

#include <QString>

/// Finds the paths that contain a text as they are shown, whatever the case of its letters. Made for many paths: most
/// are found without being made into texts.
class PathSearch final
{
public:
    explicit PathSearch(const QString &wanted); ///< An empty text is contained in all.

    bool finds(const FilePath &path);

private:
    QString wanted;
    FilePath plainWanted; ///< The same in lower case; what no plain path holds is a byte that none holds.
    FilePath lowered;     ///< Kept between two searches, for its memory.
};
