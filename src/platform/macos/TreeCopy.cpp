#include "platform/TreeCopy.h"

#include <cerrno>

#include <copyfile.h>

namespace tidlo {

int copyTree(const FilePath &source, const FilePath &destination)
{
    constexpr copyfile_flags_t flags = COPYFILE_ALL | COPYFILE_RECURSIVE | COPYFILE_NOFOLLOW | COPYFILE_EXCL;
    return copyfile(source.constData(), destination.constData(), nullptr, flags) == 0 ? 0 : errno;
}

} // namespace tidlo
