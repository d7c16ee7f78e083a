#include "platform/ApplicationCopier.h"

#include <cerrno>
#include <filesystem>

#include <copyfile.h>
#include <stdio.h>
#include <sys/xattr.h>

namespace tidlo {

namespace {

namespace fs = std::filesystem;

/// Removes the quarantine attribute from the copy: the person has already been asked about the original. If an
/// attribute stays, the system asks once more.
void releaseFromQuarantine(const FilePath &copy)
{
    const auto release = [](const fs::path &item) {
        removexattr(item.c_str(), "com.apple.quarantine", XATTR_NOFOLLOW);
    };
    const fs::path root(copy.toStdString());
    release(root);
    std::error_code error;
    for (fs::recursive_directory_iterator entry(root, error), end; !error && entry != end; entry.increment(error))
        release(entry->path());
}

} // namespace

int copyTree(const FilePath &source, const FilePath &destination)
{
    constexpr copyfile_flags_t flags = COPYFILE_ALL | COPYFILE_RECURSIVE | COPYFILE_NOFOLLOW | COPYFILE_EXCL;
    if (copyfile(source.constData(), destination.constData(), nullptr, flags) != 0)
        return errno;
    releaseFromQuarantine(destination);
    return 0;
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
