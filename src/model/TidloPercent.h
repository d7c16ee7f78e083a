#pragma once

#include <QString>

namespace tidlo {

/// A fraction as a whole-number percentage, "42%" for 0.424; halves are rounded away from zero. A fraction that is not
/// finite, or that times 100 does not fit a signed 64-bit integer, is a programming error and stops the program.
QString tidloPercent(double fraction);

} // namespace tidlo
