#pragma once

#include "cli/Command.h"

/// "tidlo-cli clean": scans, asks, and moves what the scan selected to the Trash.
Command cleanCommand();
