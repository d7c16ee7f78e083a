#pragma once

namespace tidlo {

/// Gives the application the system's standard menus beyond those that Qt makes, if the system has any. Call it once,
/// after the application object was made. Main thread.
void addStandardMenus();

} // namespace tidlo
