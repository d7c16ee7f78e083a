#pragma once

#include <QString>

#include <optional>

namespace tidlo {

/// An identifier that stays the same on this machine and differs from every other one's: an upper-case hyphenated UUID.
/// Nothing where the system keeps none. Read afresh by every call, from any thread.
std::optional<QString> machineIdentity();

} // namespace tidlo
