#pragma once

namespace tidlo {

/// How long to wait for what must happen, in milliseconds. Far longer than anything takes: only what hangs comes to it.
inline constexpr int patience = 120'000;

} // namespace tidlo
