#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// Where the running program's executable lies, links followed; empty if the system does not tell.
FilePath executablePath();

} // namespace tidlo
