#include "platform/Descriptor.h"

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
