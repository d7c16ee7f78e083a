#pragma once

#include "platform/linux/SystemCalls.h"

#include <string>

namespace tidlo {

/// A system call that is about to be made.
struct Call
{
    int number = 0;   ///< Counted from 1.
    std::string name; ///< As in the manual, but "create" for an openat() that creates a file.
    std::string path; ///< The first path or name among the arguments, if any.
};

/// Handles a call: returns what the call is to return, by calling \a real or instead of it.
using Around = std::function<long(const Call &call, const std::function<long()> &real)>;

/// The calls of \a real, each of which is passed to \a around.
SystemCalls instrumented(const Around &around, const SystemCalls &real = {});

} // namespace tidlo
