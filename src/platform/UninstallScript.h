#pragma once

#include "model/FilePath.h"

#include <QList>

#include <optional>

namespace tidlo {

/// What uninstalls the application, or why there is no such script.
struct UninstallScript
{
    QByteArray text;
    std::optional<FilePath> unquotable{}; ///< A path that the shell would not read as it is; then there is no text.
};

/// The script that uninstalls the application on this system: waits for it to end, moves the bundle at \a application
/// to the Trash, or deletes it where the system fails to do that, and removes what the application known by \a
/// identifier left in the folders of the user. Where \a application is empty, there is no bundle: it does the rest.
UninstallScript uninstallScript(const FilePath &application, const QByteArray &identifier);

/// The one for macOS, wherever it is asked for.
UninstallScript uninstallScriptForMacOS(const FilePath &application, const QByteArray &identifier);

/// The characters that have a meaning for a shell between double quotes.
inline constexpr QByteArrayView readByShell("\"$`\\");

/// The first of \a paths that holds one of \a characters and so cannot be quoted.
std::optional<FilePath> firstUnquotable(const QList<FilePath> &paths, QByteArrayView characters = readByShell);

} // namespace tidlo
