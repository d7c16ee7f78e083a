#include "platform/UninstallScript.h"

namespace tidlo {

UninstallScript uninstallScript(const FilePath &application, const QByteArray &identifier)
{
    return uninstallScriptForMacOS(application, identifier);
}

} // namespace tidlo
