#include "platform/UninstallScript.h"

#include <algorithm>

namespace tidlo {

namespace {

QByteArray removal(const FilePath &application)
{
    if (application.isEmpty())
        return {};
    return R"(/usr/bin/osascript -e 'tell application "Finder" to move POSIX file ")" + application +
           R"(" to trash' >/dev/null 2>&1 || rm -rf ")" + application + "\"\n";
}

} // namespace

std::optional<FilePath> firstUnquotable(const QList<FilePath> &paths, QByteArrayView characters)
{
    const auto found = std::ranges::find_if(paths, [=](const FilePath &path) {
        return std::ranges::any_of(path, [=](char byte) { return characters.contains(byte); });
    });
    return found == paths.end() ? std::nullopt : std::optional(*found);
}

UninstallScript uninstallScriptForMacOS(const FilePath &application, const QByteArray &identifier)
{
    // The path is inside double quotes, and those are inside single ones.
    if (const auto path = firstUnquotable({application}, "\"$`\\'"))
        return {.text = {}, .unquotable = path};
    return {.text = "#!/usr/bin/env bash\n"
                    "sleep 1\n" +
                    removal(application) + "defaults delete " + identifier +
                    " >/dev/null 2>&1 || true\n"
                    "rm -rf \"$HOME/Library/Preferences/" +
                    identifier +
                    ".plist\"\n"
                    "rm -rf \"$HOME/Library/Caches/" +
                    identifier + "\""};
}

} // namespace tidlo
