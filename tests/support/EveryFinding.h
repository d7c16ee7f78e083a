#pragma once

#include "support/TemporaryHome.h"

namespace tidlo {

/// Adds one item of every kind that a scan finds to \a home, each with as many bytes on the disk.
void addEveryFinding(const TemporaryHome &home);

} // namespace tidlo
