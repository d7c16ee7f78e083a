#include "platform/UninstallScript.h"

std::optional<QByteArray> uninstallScript(const FilePath &application, const QByteArray &identifier)
{
    // The path stands between double quotes, once more inside single ones.
    constexpr QByteArrayView readByShell("\"$`\\'");
    for (const char byte : application) {
        if (readByShell.contains(byte))
            return std::nullopt;
    }
    return uninstallScriptForMacOS(application, identifier);
}
