#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// The text of a desktop entry, as freedesktop.org specifies it, that shows the application in menus and starts
/// \a executable, whatever bytes its path holds. The icon is named \a icon.
QByteArray desktopEntry(const FilePath &executable, const QByteArray &icon);

} // namespace tidlo
