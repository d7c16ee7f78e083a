#include "platform/PreferencesFile.h"

#include "platform/ApplicationIdentifier.h"
#include "platform/FileName.h"
#include "platform/HomeFolder.h"

FilePath preferencesFile()
{
    return joined(homeFolder(), "Library/Preferences") + '/' + applicationIdentifier + ".plist";
}
