#include "platform/UserDefaults.h"

#include "platform/Bundle.h"
#include "platform/HomeFolder.h"
#include "platform/Paths.h"

namespace tidlo {

FilePath preferencesFile()
{
    return joined(homeFolder(), "Library/Preferences") + '/' + applicationIdentifier + ".plist";
}

} // namespace tidlo
