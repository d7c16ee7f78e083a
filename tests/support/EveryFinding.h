#pragma once

#include "support/TemporaryHome.h"

/// Puts into \a home one of everything that a scan finds, each with as many bytes on the disk.
void addEveryFinding(const TemporaryHome &home);
