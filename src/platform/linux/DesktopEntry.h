#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// The text of a desktop entry, as specified by freedesktop.org, that shows the application in menus and starts
/// \a executable, whatever bytes its path contains. The icon's name is \a icon.
QByteArray desktopEntry(const FilePath &executable, const QByteArray &icon);

} // namespace tidlo
