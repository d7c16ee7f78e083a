#include "platform/Descriptor.h"

#include <array>
#include <cerrno>
#include <climits>

namespace tidlo {

namespace {

#ifdef O_PATH
constexpr int searchOnly = O_PATH;
#else
constexpr int searchOnly = O_SEARCH;
#endif

} // namespace

Pipe openPipe()
{
    std::array<int, 2> ends{-1, -1};
#ifdef __APPLE__ // A program that another thread starts in between gets them.
    const int error = errorOf([&] { return pipe(ends.data()); });
    for (const int end : ends)
        fcntl(end, F_SETFD, FD_CLOEXEC);
#else
    const int error = errorOf([&] { return pipe2(ends.data(), O_CLOEXEC); });
#endif
    if (error != 0)
        return {.readEnd = Descriptor::failed(error), .writeEnd = Descriptor::failed(error)};
    return {.readEnd = Descriptor(ends[0]), .writeEnd = Descriptor(ends[1])};
}

PathLocation::PathLocation(const FilePath &path)
    : rest(path)
{
    if (path.contains('\0')) {
        failure = EINVAL;
        return;
    }
    while (rest.size() >= PATH_MAX) {
        const qsizetype end = rest.lastIndexOf('/', PATH_MAX - 2);
        if (end <= 0) { // A single name that is too long for any file system.
            failure = ENAMETOOLONG;
            return;
        }
        const FilePath stretch = rest.left(end);
        Descriptor next(
            uninterrupted([&] { return openat(folder(), stretch.constData(), searchOnly | O_DIRECTORY | O_CLOEXEC); }));
        if (!next.isValid()) {
            failure = next.error();
            return;
        }
        holder = std::move(next);
        rest.remove(0, end + 1);
        while (rest.startsWith('/')) // The rest is a relative path now.
            rest.remove(0, 1);
    }
}

} // namespace tidlo
