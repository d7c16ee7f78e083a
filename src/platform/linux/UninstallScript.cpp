#include "platform/UninstallScript.h"

#include "platform/linux/UserFolders.h"

namespace tidlo {

namespace {

QByteArray quoted(const FilePath &path)
{
    return '"' + path + '"';
}

/// Lets the bundle move itself to the Trash. It is deleted if the system fails to do that, or even to start it; other
/// exit statuses mean that the Trash refused it on purpose, and then it stays.
QByteArray removal(const FilePath &application)
{
    if (application.isEmpty())
        return {};
    return quoted(application + "/Contents/MacOS/tidlo-cli") + " trash-bundle --at " + quoted(application) +
           " >/dev/null 2>&1 || case $? in 1 | 126 | 127) rm -rf " + quoted(application) + " ;; esac\n";
}

} // namespace

UninstallScript uninstallScript(const FilePath &application, const QByteArray &identifier)
{
    const UserFiles files = userFilesOf(identifier);
    const QList<FilePath> named{application, files.desktopEntry, files.icon, files.preferences, files.cacheFolder};
    if (const auto path = firstUnquotable(named))
        return {.text = {}, .unquotable = path};
    return {.text = "#!/usr/bin/env bash\n"
                    "sleep 1\n" +
                    removal(application) + "rm -f " + quoted(files.desktopEntry) +
                    "\n"
                    "rm -f " +
                    quoted(files.icon) +
                    "\n"
                    "rm -f " +
                    quoted(files.preferences) +
                    "\n"
                    "rm -rf " +
                    quoted(files.cacheFolder)};
}

} // namespace tidlo
