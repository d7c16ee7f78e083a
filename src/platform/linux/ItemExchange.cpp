#include "platform/ItemExchange.h"

#include <cerrno>

#include <fcntl.h>
#include <stdio.h>

namespace tidlo {

int exchangeItems(const FilePath &one, const FilePath &other)
{
    return renameat2(AT_FDCWD, one.constData(), AT_FDCWD, other.constData(), RENAME_EXCHANGE) == 0 ? 0 : errno;
}

bool isExchangeUnknown(int error)
{
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

} // namespace tidlo
