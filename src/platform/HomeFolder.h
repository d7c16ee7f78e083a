#pragma once

#include "model/FilePath.h"

#include <optional>

#include <pwd.h>

namespace tidlo {

/// The home folder of the current user: $HOME where that is absolute, or what the user database says, or "/". Without
/// slashes at its end. Each call that needs the database asks it, so a caller that needs the answer often should keep
/// it.
FilePath homeFolder();

/// Makes homeFolder() the $HOME of this process, so that libraries and programs that it starts agree with it. Gives the
/// $HOME that was ignored because it is no absolute path. To be called first, while there is one thread.
std::optional<FilePath> settleHome();

/// What the user database says is the home folder of \a user; empty where it says nothing, or nothing of a sensible
/// size. \a ask: getpwuid_r, or what stands for it in a test.
FilePath homeInDatabase(uid_t user, decltype(getpwuid_r) *ask = getpwuid_r);

} // namespace tidlo
