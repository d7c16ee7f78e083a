#include "support/GeneratedTree.h"

#include <algorithm>
#include <array>
#include <tuple>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

namespace {

void makeFoldersAbove(const FilePath &path)
{
    for (qsizetype end = path.indexOf('/', 1); end != -1; end = path.indexOf('/', end + 1))
        mkdir(path.left(end).constData(), 0755);
}

void makeFile(const FilePath &path, Decisions &decisions)
{
    const int file = open(path.constData(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0644);
    if (file == -1)
        return;
    constexpr std::array<off_t, 4> sizes{0, 1, 10'000, 200'000'000}; // The largest is sparse after its first bytes.
    const off_t size = sizes[decisions.below(sizes.size())];
    constexpr std::array<time_t, 4> times{0, 1'000'000'000, 1'600'000'000, 4'000'000'000};
    const timespec time{.tv_sec = times[decisions.below(times.size())], .tv_nsec = 0};
    const std::array both{time, time};
    const bool isMade = write(file, "some bytes", static_cast<size_t>(std::min<off_t>(size, 10))) >= 0 &&
                        ftruncate(file, size) == 0 && futimens(file, both.data()) == 0;
    close(file);
    if (!isMade)
        unlink(path.constData());
}

} // namespace

uint8_t Decisions::next()
{
    if (left.empty())
        return 0;
    const uint8_t byte = left.front();
    left = left.subspan(1);
    return byte;
}

QByteArray Decisions::bytes()
{
    const size_t size = std::min<size_t>(next(), left.size());
    const QByteArray taken(reinterpret_cast<const char *>(left.data()), static_cast<qsizetype>(size));
    left = left.subspan(size);
    return taken;
}

FilePath Decisions::name(std::span<const char *const> telling)
{
    const uint8_t choice = next();
    if (choice < telling.size())
        return telling[choice];
    FilePath name = bytes();
    name.replace('/', "").replace('\0', "");
    return name.isEmpty() || name == "." || name == ".." ? FilePath("x") : name;
}

FilePath Decisions::path(std::span<const char *const> telling)
{
    FilePath path = name(telling);
    for (unsigned more = below(5); more > 0; --more)
        path += '/' + name(telling);
    return path;
}

void makeSomething(const FilePath &top, Decisions &decisions, std::span<const char *const> telling)
{
    enum { folder, file, symbolicLink, hardLink, count };
    const unsigned kind = decisions.below(count);
    const FilePath path = top + '/' + decisions.path(telling);
    makeFoldersAbove(path);
    if (kind == folder)
        mkdir(path.constData(), 0755);
    else if (kind == file)
        makeFile(path, decisions);
    else if (const FilePath other = top + '/' + decisions.path(telling); kind == symbolicLink)
        std::ignore = symlink(other.constData(), path.constData());
    else
        std::ignore = link(other.constData(), path.constData());
}

} // namespace tidlo
