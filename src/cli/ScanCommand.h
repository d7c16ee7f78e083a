#pragma once

#include "cli/Command.h"

/// "tidlo-cli scan": shows what could be cleaned, changes nothing.
Command scanCommand();
