#pragma once

#include "app/AppViewModel.h"

namespace tidlo {

/// What the application does once as it starts: on a run before setup has been completed, offers to move to the
/// Applications folder. Where there is no such folder, the application lies in it already, or the program runs from no
/// bundle, it goes on as if that had been declined. Main thread.
void beginFirstRun(AppViewModel &model);

} // namespace tidlo
