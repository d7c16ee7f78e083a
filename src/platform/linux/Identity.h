#pragma once

#include "platform/linux/SystemCalls.h"

namespace tidlo {

enum class Identity {
    same,
    different, ///< Something else has the name.
    absent,    ///< Nothing has it.
    unknown,   ///< The system does not tell; errno says why.
};

/// Whether what is called \a name in \a folder, a link not followed, is the very thing that \a held holds open. As long
/// as it is held, nothing else can have its number.
Identity identityAt(const SystemCalls &calls, int held, int folder, const char *name);

} // namespace tidlo
