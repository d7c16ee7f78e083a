#include "platform/linux/Identity.h"

#include <cerrno>

namespace tidlo {

Identity identityAt(const SystemCalls &calls, int held, int folder, const char *name)
{
    // Both are asked anew: on layered file systems a number may change when a thing is moved.
    struct statx one;
    struct statx other;
    if (calls.statx(held, "", AT_EMPTY_PATH, STATX_INO, &one) != 0)
        return Identity::unknown;
    if (calls.statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_INO, &other) != 0)
        return errno == ENOENT ? Identity::absent : Identity::unknown;
    const bool same = one.stx_ino == other.stx_ino && one.stx_dev_major == other.stx_dev_major &&
                      one.stx_dev_minor == other.stx_dev_minor;
    return same ? Identity::same : Identity::different;
}

} // namespace tidlo
