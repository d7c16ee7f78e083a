#include "platform/PreferencesFile.h"

#include "platform/ApplicationIdentifier.h"
#include "platform/linux/UserFiles.h"

namespace tidlo {

FilePath preferencesFile()
{
    return userFilesOf(applicationIdentifier).preferences;
}

} // namespace tidlo
