#pragma once

namespace tidlo {

/// By which systems know the application: its bundle, its desktop entry, its preferences and its cache are named so.
inline constexpr const char *applicationIdentifier = "com.tidlo.storagecleaner";

} // namespace tidlo
