#include "platform/ItemExchange.h"

#include <cerrno>

#include <stdio.h>

namespace tidlo {

int exchangeItems(const FilePath &one, const FilePath &other)
{
    return renamex_np(one.constData(), other.constData(), RENAME_SWAP) == 0 ? 0 : errno;
}

bool isExchangeUnknown(int error)
{
    return error == ENOTSUP || error == EINVAL || error == ENOSYS;
}

} // namespace tidlo
