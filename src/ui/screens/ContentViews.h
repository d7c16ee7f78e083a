#pragma once

// The whole public face of the screens: what they show of the state, computed here, and the views of the module
// Tidlo.Screens, which only lay it out. One class for each screen, one QML file for each view.

#include "ui/screens/Presentation.h"

#include <qqml.h>

namespace tidlo {

/// Makes the module known to QML, after the design system. Needs an application object.
void useContentViews();

} // namespace tidlo
