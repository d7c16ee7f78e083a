#pragma once

#include "cli/Command.h"

namespace tidlo {

/// "tidlo-cli scan": shows what could be cleaned, changes nothing.
Command scanCommand();

} // namespace tidlo
