#pragma once

#include "model/FilePath.h"

/// Where the preferences of this user lie, as the system has it. Read from the environment each time.
FilePath preferencesFile();
