#pragma once

#include "cli/Command.h"

namespace tidlo {

/// "tidlo-cli explain": scans, and asks the AI proxy to explain what was found.
Command explainCommand();

} // namespace tidlo
