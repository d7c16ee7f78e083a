#pragma once

// The whole public face of the design system. Its elements for QML are the module Tidlo.Design: the surfaces, buttons,
// rings and texts of this folder. Nothing here knows what Tidlo does.

#include "ui/design/ContinuousRectangle.h"
#include "ui/design/Motion.h"
#include "ui/design/ThemePreference.h"
#include "ui/design/TidloTheme.h"
#include "ui/design/TidloType.h"
