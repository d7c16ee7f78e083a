#pragma once

#include "model/FilePath.h"

#include <optional>

#include <pwd.h>

namespace tidlo {

/// The home folder of the current user: $HOME if that is absolute, otherwise the one in the user database, otherwise
/// "/". Without slashes at its end. Each call that needs the database queries it, so cache the result if you need it
/// often.
FilePath homeFolder();

/// Sets the $HOME of this process to homeFolder(), so that libraries and child processes agree with it. Returns the
/// former $HOME if that was ignored because it is not absolute. Call it first, while there is only one thread.
std::optional<FilePath> settleHome();

/// The home folder of \a user in the user database; empty if there is none, or its entry is too large. \a ask:
/// getpwuid_r, or its replacement in a test.
FilePath homeInDatabase(uid_t user, decltype(getpwuid_r) *ask = getpwuid_r);

} // namespace tidlo
