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

/// Renames \a from to \a to, and never replaces anything. Returns 0 or the errno, which is EEXIST if the name is taken.
/// \a isFolder: whether the item is a folder. On file systems that cannot rename without replacing, an empty item of
/// ours takes the name first, and only that is replaced.
int renameWithoutReplacing(const SystemCalls &calls, const NameInFolder &from, const NameInFolder &to, bool isFolder);

} // namespace tidlo
