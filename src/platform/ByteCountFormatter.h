#pragma once

#include <QString>

namespace tidlo {

/// A byte count for people, in file style: decimal units, "Zero KB", "1 byte", "512 bytes", whole kilobytes, one
/// decimal for megabytes, two from gigabytes up, trailing zeros dropped. Halves are rounded away from zero, and a
/// figure that rounds up to the next unit is written in it: 999,999 bytes are "1 MB".
QString byteCountText(qint64 bytes);

} // namespace tidlo
