#pragma once

#include "model/FilePath.h"

#include <QList>

#include <optional>

namespace tidlo {

/// What uninstalls the application, or why there is no such script.
struct UninstallScript
{
    QByteArray text;
    std::optional<FilePath> unquotable{}; ///< Holds a character that the shell reads as its own; then there is no text.
};

/// The script that uninstalls the application on this system: waits for it to end, moves the bundle at \a application
/// to the Trash, or deletes it where the system fails to do that, and removes what the application known by \a
/// identifier left in the folders of the user.
UninstallScript uninstallScript(const FilePath &application, const QByteArray &identifier);

/// The one for macOS, wherever it is asked for.
UninstallScript uninstallScriptForMacOS(const FilePath &application, const QByteArray &identifier);

/// What a shell reads as its own between double quotes.
inline constexpr QByteArrayView readByShell("\"$`\\");

/// The first of \a paths that holds one of \a characters and so does not mean itself where it is quoted.
std::optional<FilePath> firstUnquotable(const QList<FilePath> &paths, QByteArrayView characters = readByShell);

} // namespace tidlo
