#include "platform/UninstallScript.h"

#include "platform/linux/UserFiles.h"

#include <algorithm>
#include <array>

namespace {

/// Whether \a path means itself between double quotes.
bool canBeQuoted(const FilePath &path)
{
    constexpr QByteArrayView readByShell("\"$`\\");
    return std::ranges::none_of(path, [=](char byte) { return readByShell.contains(byte); });
}

QByteArray quoted(const FilePath &path)
{
    return '"' + path + '"';
}

} // namespace

std::optional<QByteArray> uninstallScript(const FilePath &application, const QByteArray &identifier)
{
    const UserFiles files = userFilesOf(identifier);
    if (!std::ranges::all_of(
            std::array{application, files.desktopEntry, files.icon, files.preferences, files.cacheFolder}, canBeQuoted))
        return std::nullopt;
    return "#!/usr/bin/env bash\n"
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
           quoted(files.cacheFolder);
}
