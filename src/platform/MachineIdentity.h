#pragma once

#include <QString>

#include <optional>

namespace tidlo {

/// An identifier that stays the same on this machine and differs from every other one's: an upper-case hyphenated UUID.
/// Nothing if the system has none. Each call reads it anew. Any thread.
std::optional<QString> machineIdentity();

} // namespace tidlo
