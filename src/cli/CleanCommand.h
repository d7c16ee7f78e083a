#pragma once

#include "cli/Command.h"

namespace tidlo {

/// "tidlo-cli clean": scans, asks, and moves what the scan selected to the Trash.
Command cleanCommand();

} // namespace tidlo
