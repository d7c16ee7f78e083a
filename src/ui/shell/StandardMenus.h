#pragma once

namespace tidlo {

/// Gives the application the menus that all have on this system, beyond those that Qt gives it, where applications have
/// any. To be called once, with an application object. Main thread.
void addStandardMenus();

} // namespace tidlo
