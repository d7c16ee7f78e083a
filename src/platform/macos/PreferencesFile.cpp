#include "platform/PreferencesFile.h"

#include "platform/ApplicationIdentifier.h"
#include "platform/FileName.h"
#include "platform/HomeFolder.h"

namespace tidlo {

FilePath preferencesFile()
{
    return joined(homeFolder(), "Library/Preferences") + '/' + applicationIdentifier + ".plist";
}

} // namespace tidlo
