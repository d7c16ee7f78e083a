#include "platform/linux/UserFiles.h"

#include "platform/FileName.h"
#include "platform/HomeFolder.h"
#include "platform/linux/UserFolders.h"

namespace tidlo {

UserFiles userFilesOf(const QByteArray &identifier)
{
    const FilePath home = homeFolder();
    const FilePath data = dataHomeIn(home, qgetenv("XDG_DATA_HOME"));
    const FilePath configuration = folderInHome(home, ".config", qgetenv("XDG_CONFIG_HOME"));
    const FilePath caches = folderInHome(home, ".cache", qgetenv("XDG_CACHE_HOME"));
    return {.desktopEntry = joined(data, "applications/" + identifier + ".desktop"),
            .icon = joined(data, "icons/hicolor/512x512/apps/" + identifier + ".png"),
            .preferences = joined(configuration, identifier + ".conf"),
            .cacheFolder = joined(caches, identifier)};
}

} // namespace tidlo
