#include "platform/PreferencesFile.h"

#include "platform/ApplicationIdentifier.h"
#include "platform/linux/UserFiles.h"

FilePath preferencesFile()
{
    return userFilesOf(applicationIdentifier).preferences;
}
