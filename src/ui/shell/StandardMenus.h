#pragma once

namespace tidlo {

/// Gives the application the menus that all applications have on this system, if they have any, beyond those that Qt
/// makes. To be called once, with an application object. Main thread.
void addStandardMenus();

} // namespace tidlo
