#pragma once

#include "platform/linux/SystemCalls.h"

#include <string>

namespace tidlo {

/// One call of the system that is about to be made.
struct Call
{
    int number = 0;   ///< From 1 on.
    std::string name; ///< As in the manual, but "create" for an openat that makes a file.
    std::string path; ///< The first path or name it is given, if any.
};

/// Decides what becomes of a call: it gives what the call is to return, by making it with \a real or in its stead.
using Around = std::function<long(const Call &call, const std::function<long()> &real)>;

/// The calls of \a real, each of which goes through \a around.
SystemCalls instrumented(const Around &around, const SystemCalls &real = {});

} // namespace tidlo
