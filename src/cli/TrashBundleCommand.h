#pragma once

#include "cli/Command.h"

namespace tidlo {

/// "tidlo-cli trash-bundle": moves the bundle that it runs from to the Trash. For the script that uninstalls the
/// application, not for people, so the list of commands leaves it out.
Command trashBundleCommand();

} // namespace tidlo
