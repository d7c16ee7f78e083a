#pragma once

#include "support/TemporaryHome.h"

namespace tidlo {

/// Puts into \a home one of everything that a scan finds, each with as many bytes on the disk.
void addEveryFinding(const TemporaryHome &home);

} // namespace tidlo
