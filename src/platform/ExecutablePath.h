#pragma once

#include "model/FilePath.h"

/// Where the running program's executable lies, links followed; empty if the system does not tell.
FilePath executablePath();
