#pragma once

#include <QLatin1StringView>

/// By which systems know the application: its bundle, its desktop entry, its preferences and its cache are named so.
inline constexpr QLatin1StringView applicationIdentifier{"com.tidlo.storagecleaner"};
