#include "platform/Bundle.h"
#include "platform/PreferenceStore.h"
#include "platform/linux/UserFolders.h"

#include <QFile>

namespace tidlo {

std::unique_ptr<PreferenceStore> preferencesOfUser()
{
    return preferencesIn(QFile::decodeName(userFilesOf(applicationIdentifier).preferences));
}

} // namespace tidlo
