#pragma once

#include "model/FilePath.h"

#include <optional>

/// The script that uninstalls the application on this system: waits for it to end, moves the bundle at \a application
/// to the Trash, or deletes it where that fails, and removes what the application known by \a identifier left in the
/// folders of the user. Nothing if it would have to name a path with a character that the shell reads as its own.
std::optional<QByteArray> uninstallScript(const FilePath &application, const QByteArray &identifier);

/// The text of the one for macOS, wherever it is asked for, with both values inserted as they are.
QByteArray uninstallScriptForMacOS(const FilePath &application, const QByteArray &identifier);
