#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// Asks the file browser of the desktop, over the session bus, to show \a item, as the freedesktop.org interface
/// org.freedesktop.FileManager1 describes; if none answers, opens the folder that it lies in with xdg-open. Returns at
/// once. Main thread, with an event loop.
void showInFiles(const FilePath &item);

} // namespace tidlo
