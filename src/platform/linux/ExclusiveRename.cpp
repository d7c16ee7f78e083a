#include "platform/linux/ExclusiveRename.h"

#include "platform/linux/OpenFolder.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace tidlo {

namespace {

bool cannotKeepFromReplacing(int error)
{
    constexpr std::array errors{EINVAL, ENOSYS, EOPNOTSUPP};
    return std::ranges::count(errors, error) != 0;
}

int renamed(const SystemCalls &calls, const NameInFolder &from, const NameInFolder &to, unsigned flags)
{
    const int result = calls.renameat2(from.folder, from.name.constData(), to.folder, to.name.constData(), flags);
    return result == 0 ? 0 : errno;
}

/// Takes the name with an empty item, and holds that open.
Descriptor reserve(const SystemCalls &calls, const NameInFolder &to, bool isFolder)
{
    constexpr int exclusively = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    if (!isFolder)
        return Descriptor(calls.openat(to.folder, to.name.constData(), exclusively, 0600));
    if (calls.mkdirat(to.folder, to.name.constData(), 0700) != 0)
        return Descriptor::failed(errno);
    Descriptor folder(calls.openat(to.folder, to.name.constData(), asFolder | O_NOFOLLOW, 0));
    if (!folder.isValid())
        calls.unlinkat(to.folder, to.name.constData(), AT_REMOVEDIR);
    return folder;
}

int renameOntoReserved(const SystemCalls &calls, const NameInFolder &from, const NameInFolder &to, bool isFolder)
{
    const Descriptor reserved = reserve(calls, to, isFolder);
    if (!reserved.isValid())
        return reserved.error();
    const auto isReserved = [&] {
        const OrError<Identity> there = identityAt(calls, reserved.get(), to.folder, to.name.constData());
        return there && *there == Identity::same;
    };
    const int error = isReserved() ? renamed(calls, from, to, 0) : ESTALE;
    if (error != 0 && isReserved())
        calls.unlinkat(to.folder, to.name.constData(), isFolder ? AT_REMOVEDIR : 0);
    return error;
}

} // namespace

int renameWithoutReplacing(const SystemCalls &calls, const NameInFolder &from, const NameInFolder &to, bool isFolder)
{
    const int error = renamed(calls, from, to, RENAME_NOREPLACE);
    return cannotKeepFromReplacing(error) ? renameOntoReserved(calls, from, to, isFolder) : error;
}

} // namespace tidlo
