#include "platform/UninstallScript.h"

UninstallScript uninstallScript(const FilePath &application, const QByteArray &identifier)
{
    return uninstallScriptForMacOS(application, identifier);
}
