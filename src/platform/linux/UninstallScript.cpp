#include "platform/UninstallScript.h"

#include "platform/ShellQuoting.h"
#include "platform/linux/UserFiles.h"

namespace {

QByteArray quoted(const FilePath &path)
{
    return '"' + path + '"';
}

} // namespace

UninstallScript uninstallScript(const FilePath &application, const QByteArray &identifier)
{
    const UserFiles files = userFilesOf(identifier);
    const QList<FilePath> named{application, files.desktopEntry, files.icon, files.preferences, files.cacheFolder};
    if (const auto path = firstUnquotable(named))
        return {.text = {}, .unquotable = path};
    return {.text = "#!/usr/bin/env bash\n"
                    "sleep 1\n"
                    "gio trash " +
                    quoted(application) + " >/dev/null 2>&1 || rm -rf " + quoted(application) +
                    "\n"
                    "rm -f " +
                    quoted(files.desktopEntry) +
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
