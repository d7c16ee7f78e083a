#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// Where the preferences of this user lie, as the system has it. Read from the environment each time.
FilePath preferencesFile();

} // namespace tidlo
