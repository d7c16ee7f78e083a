#include "platform/ApplicationCopier.h"

#include <cerrno>

#include <copyfile.h>
#include <stdio.h>

namespace tidlo {

int copyTree(const FilePath &source, const FilePath &destination)
{
    constexpr copyfile_flags_t flags = COPYFILE_ALL | COPYFILE_RECURSIVE | COPYFILE_NOFOLLOW | COPYFILE_EXCL;
    return copyfile(source.constData(), destination.constData(), nullptr, flags) == 0 ? 0 : errno;
}

int exchangeItems(const FilePath &one, const FilePath &other)
{
    return renamex_np(one.constData(), other.constData(), RENAME_SWAP) == 0 ? 0 : errno;
}

bool isExchangeUnknown(int error)
{
    return error == ENOTSUP || error == EINVAL || error == ENOSYS;
}

} // namespace tidlo
