#include "platform/ApplicationCopier.h"

#include "platform/Descriptor.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <vector>

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>

namespace tidlo {

namespace {

namespace fs = std::filesystem;

/// An item and the path of its copy.
struct Pair
{
    fs::path source;
    fs::path destination;
};

/// As the standard library tells it. No error if \a number, an errno, is 0.
std::error_code asCode(int number)
{
    return {number, std::generic_category()};
}

/// The result of a system \a call.
template <typename Call>
std::error_code outcome(Call call)
{
    return asCode(errorOf(call));
}

std::error_code keepTimes(const Pair &item)
{
    struct stat status;
    if (const std::error_code error = outcome([&] { return lstat(item.source.c_str(), &status); }))
        return error;
    const std::array times{status.st_atim, status.st_mtim};
    return outcome([&] { return utimensat(AT_FDCWD, item.destination.c_str(), times.data(), AT_SYMLINK_NOFOLLOW); });
}

/// Sets the folder's permissions and time after its contents were copied: its permissions may forbid changes, and
/// changes set its time.
std::error_code finishFolder(const Pair &folder)
{
    std::error_code error;
    const fs::perms permissions = fs::status(folder.source, error).permissions();
    if (!error)
        fs::permissions(folder.destination, permissions, error);
    return error ? error : keepTimes(folder);
}

/// The standard library's function reports every failure to write as an input/output error.
std::error_code copyFile(const Pair &file)
{
    constexpr int exclusively = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    const Descriptor from(uninterrupted([&] { return open(file.source.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC); }));
    if (!from.isValid())
        return asCode(from.error());
    struct stat status;
    if (const std::error_code error = outcome([&] { return fstat(from.get(), &status); }))
        return error;
    const Descriptor to(uninterrupted([&] { return open(file.destination.c_str(), exclusively, 0600); }));
    if (!to.isValid())
        return asCode(to.error());
    constexpr size_t most = 1 << 30;
    ssize_t copied = 1;
    while (copied > 0)
        copied = uninterrupted([&] { return sendfile(to.get(), from.get(), nullptr, most); });
    return copied < 0 ? asCode(errno) : outcome([&] { return fchmod(to.get(), status.st_mode); });
}

std::error_code copyItem(const Pair &item, fs::file_type type)
{
    if (type == fs::file_type::directory)
        return outcome([&] { return mkdir(item.destination.c_str(), 0700); });
    std::error_code error;
    if (type == fs::file_type::symlink)
        fs::copy_symlink(item.source, item.destination, error);
    else
        error = type == fs::file_type::regular ? copyFile(item) : std::make_error_code(std::errc::not_supported);
    return error ? error : keepTimes(item);
}

/// Copies the contents of \a top, and adds the folders that it made to \a folders, each after its parent.
std::error_code copyContents(const Pair &top, std::vector<Pair> &folders)
{
    std::error_code error;
    for (fs::recursive_directory_iterator entry(top.source, error), end; !error && entry != end;
         entry.increment(error)) {
        const Pair item{entry->path(), top.destination / entry->path().lexically_relative(top.source)};
        const fs::file_type type = entry->symlink_status(error).type();
        if (!error)
            error = copyItem(item, type);
        if (error)
            return error;
        if (type == fs::file_type::directory)
            folders.push_back(item);
    }
    return error;
}

std::error_code copyFolder(const Pair &top)
{
    if (const std::error_code error = copyItem(top, fs::file_type::directory))
        return error;
    std::vector folders{top};
    if (const std::error_code error = copyContents(top, folders))
        return error;
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder) {
        if (const std::error_code error = finishFolder(*folder))
            return error;
    }
    return {};
}

} // namespace

int copyTree(const FilePath &source, const FilePath &destination)
{
    const Pair top{source.toStdString(), destination.toStdString()};
    std::error_code error;
    const fs::file_type type = fs::symlink_status(top.source, error).type();
    if (!error)
        error = type == fs::file_type::directory ? copyFolder(top) : copyItem(top, type);
    return error.value();
}

int exchangeItems(const FilePath &one, const FilePath &other)
{
    return renameat2(AT_FDCWD, one.constData(), AT_FDCWD, other.constData(), RENAME_EXCHANGE) == 0 ? 0 : errno;
}

bool isExchangeUnknown(int error)
{
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

} // namespace tidlo
