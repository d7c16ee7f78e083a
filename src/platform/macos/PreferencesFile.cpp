#include "platform/PreferencesFile.h"

#include "platform/ApplicationIdentifier.h"

#include <QDir>

FilePath preferencesFile()
{
    return QFile::encodeName(QDir::homePath()) + "/Library/Preferences/" + applicationIdentifier + ".plist";
}
