#pragma once

#include <cerrno>

namespace tidlo {

/// Makes a \a call of the system, which tells a failure by a negative number and errno, again when a signal interrupted
/// it; a hundred times at most, since a broken file system may say so for ever. Not meant for close(), which closes
/// even so.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    for (int triesLeft = 100; result < 0 && errno == EINTR && triesLeft > 0; --triesLeft)
        result = call();
    return result;
}

} // namespace tidlo
