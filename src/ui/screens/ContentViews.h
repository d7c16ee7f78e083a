#pragma once

// The whole public interface of the screens: what they show of the state, computed here, and the views of the module
// Tidlo.Screens, which only lay it out. One class for each screen, one QML file for each view.

#include "app/AppViewModel.h"
#include "ui/screens/Disclosure.h"
#include "ui/screens/Findings.h"
#include "ui/screens/FoundItems.h"
#include "ui/screens/KeptPaths.h"
#include "ui/screens/Preferences.h"
#include "ui/screens/Presentation.h"
#include "ui/screens/ProxyStatus.h"
#include "ui/screens/Removal.h"
#include "ui/screens/ScanProgress.h"
#include "ui/screens/ShownReport.h"
#include "ui/screens/StayedItems.h"

#include <qqml.h>

namespace tidlo {

/// Lets views take the state owner as a property.
struct AppViewModelForQml
{
    Q_GADGET
    QML_FOREIGN(tidlo::AppViewModel)
    QML_NAMED_ELEMENT(AppViewModel)
    QML_UNCREATABLE("There is one, and it is given.")
};

} // namespace tidlo
