#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// Where files of the application lie in the folders of the user. All absolute.
struct UserFiles
{
    FilePath desktopEntry;
    FilePath icon; ///< A PNG.
    FilePath preferences;
    FilePath cacheFolder;
};

/// Those of the application known by \a identifier. Read from the environment each time.
UserFiles userFilesOf(const QByteArray &identifier);

} // namespace tidlo
