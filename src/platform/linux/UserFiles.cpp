#include "platform/linux/UserFiles.h"

#include <QFile>
#include <QStandardPaths>

namespace {

FilePath in(QStandardPaths::StandardLocation location, const FilePath &name)
{
    return QFile::encodeName(QStandardPaths::writableLocation(location)) + '/' + name;
}

} // namespace

UserFiles userFilesOf(const QByteArray &identifier)
{
    const auto data = QStandardPaths::GenericDataLocation;
    return {.desktopEntry = in(data, "applications/" + identifier + ".desktop"),
            .icon = in(data, "icons/hicolor/512x512/apps/" + identifier + ".png"),
            .preferences = in(QStandardPaths::GenericConfigLocation, identifier + ".conf"),
            .cacheFolder = in(QStandardPaths::GenericCacheLocation, identifier)};
}
