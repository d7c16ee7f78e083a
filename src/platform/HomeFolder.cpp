#include "platform/HomeFolder.h"

#include <cerrno>
#include <cstdlib>
#include <vector>

#include <unistd.h>

namespace tidlo {

namespace {

bool isAbsolute(const FilePath &path)
{
    return path.startsWith('/');
}

FilePath withoutSlashesAtEnd(FilePath path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

} // namespace

FilePath homeInDatabase(uid_t user, decltype(getpwuid_r) *ask)
{
    constexpr size_t most = 1 << 20;
    passwd entry{};
    for (size_t size = 1 << 10; size <= most; size *= 2) {
        std::vector<char> texts(size);
        passwd *found = nullptr;
        int error = EINTR;
        while (error == EINTR)
            error = ask(user, &entry, texts.data(), texts.size(), &found);
        if (error != ERANGE)
            return error == 0 && found != nullptr ? FilePath(found->pw_dir) : FilePath();
    }
    return {};
}

FilePath homeFolder()
{
    FilePath home = qgetenv("HOME");
    if (!isAbsolute(home))
        home = homeInDatabase(getuid());
    return isAbsolute(home) ? withoutSlashesAtEnd(home) : FilePath("/");
}

std::optional<FilePath> settleHome()
{
    const FilePath given = qgetenv("HOME");
    qputenv("HOME", homeFolder());
    return given.isEmpty() || isAbsolute(given) ? std::nullopt : std::optional(given);
}

} // namespace tidlo
