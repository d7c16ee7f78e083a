#include "platform/SmallFile.h"

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

OrError<QByteArray> readSmallFile(const FilePath &path, LinkAtEnd link)
{
    const int flags = O_RDONLY | O_NONBLOCK | O_CLOEXEC | (link == LinkAtEnd::refused ? O_NOFOLLOW : 0);
    return readSmallFile(Descriptor(uninterrupted([&] { return open(path.constData(), flags); })));
}

OrError<QByteArray> readSmallFile(const Descriptor &file)
{
    if (!file.isValid())
        return Errno{file.error()};
    struct stat status;
    if (const int error = errorOf([&] { return fstat(file.get(), &status); }))
        return Errno{error};
    if (!S_ISREG(status.st_mode))
        return Errno{EBADMSG};
    QByteArray content;
    std::array<char, 1 << 12> part;
    while (content.size() <= smallFileLimit) {
        const ssize_t got = uninterrupted([&] { return read(file.get(), part.data(), part.size()); });
        if (got < 0)
            return Errno{errno};
        if (got == 0)
            return content;
        content.append(part.data(), got);
    }
    return Errno{EFBIG};
}

} // namespace tidlo
