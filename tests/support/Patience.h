#pragma once

namespace tidlo {

/// How long to wait for something that must happen, in milliseconds. Far longer than anything takes: only a hang
/// reaches it.
inline constexpr int patience = 120'000;

} // namespace tidlo
