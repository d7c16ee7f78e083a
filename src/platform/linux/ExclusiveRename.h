#pragma once

#include "model/FilePath.h"
#include "platform/linux/SystemCalls.h"

namespace tidlo {

/// A name in a folder that is held open.
struct NameInFolder
{
    int folder = -1;
    FilePath name;
};

/// Gives what is called \a from the name \a to, and never replaces anything. Returns 0 or the errno, which is EEXIST
/// when the name is taken. \a isFolder tells what the item is. For file systems that cannot be told not to replace what
/// has a name, an empty thing of ours takes it first, and is all that is replaced.
int renameWithoutReplacing(const SystemCalls &calls, const NameInFolder &from, const NameInFolder &to, bool isFolder);

} // namespace tidlo
