#pragma once

// The whole public face of the shell's views: what they show of the state, computed here, and the module Tidlo.Shell,
// which only lays it out.

#include "ui/shell/Navigation.h"
#include "ui/shell/StorageFigures.h"

namespace tidlo {

/// Makes the module known to QML, after the screens. Needs an application object.
void useShell();

} // namespace tidlo
