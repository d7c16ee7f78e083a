#pragma once

#include "model/FilePath.h"

#include <QList>

#include <optional>

namespace tidlo {

/// The script that uninstalls the application, or why there is none.
struct UninstallScript
{
    QByteArray text;
    std::optional<FilePath> unquotable{}; ///< A path that the shell would interpret; then there is no script.
};

/// The script that uninstalls the application on this system: waits for it to end, moves the bundle at \a application
/// to the Trash, or deletes it if the system fails to do that, and removes the files in the user's folders that belong
/// to \a identifier. If \a application is empty, there is no bundle: it does only the rest.
UninstallScript uninstallScript(const FilePath &application, const QByteArray &identifier);

/// The script for macOS, on any system.
UninstallScript uninstallScriptForMacOS(const FilePath &application, const QByteArray &identifier);

/// The characters with a meaning for a shell between double quotes.
inline constexpr QByteArrayView readByShell("\"$`\\");

/// The first of \a paths that holds one of \a characters and so cannot be quoted.
std::optional<FilePath> firstUnquotable(const QList<FilePath> &paths, QByteArrayView characters = readByShell);

} // namespace tidlo
