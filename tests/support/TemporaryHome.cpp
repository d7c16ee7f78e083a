#include "support/TemporaryHome.h"

#include <QDir>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#ifdef Q_OS_MACOS // The names of the same fields on macOS.
#define st_atim st_atimespec
#define st_ctim st_ctimespec
#define st_mtim st_mtimespec
constexpr int O_NOATIME = 0;
extern char **environ;
#endif

namespace tidlo {

namespace {

void require(bool succeeded, const char *what, const FilePath &path)
{
    if (succeeded)
        return;
    std::fprintf(stderr, "TemporaryHome: %s %s: %s\n", what, path.constData(), std::strerror(errno));
    std::abort();
}

void makeFolders(const FilePath &path)
{
    for (qsizetype end = path.indexOf('/', 1); end != -1; end = path.indexOf('/', end + 1)) {
        const FilePath ancestor = path.left(end);
        require(mkdir(ancestor.constData(), 0755) == 0 || errno == EEXIST, "mkdir", ancestor);
    }
    require(mkdir(path.constData(), 0755) == 0 || errno == EEXIST, "mkdir", path);
}

std::chrono::nanoseconds nanoseconds(const timespec &time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Whether it succeeds. Its error output is discarded.
bool run(QList<FilePath> words)
{
    std::vector<char *> arguments;
    for (FilePath &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    int status = -1;
    if (posix_spawnp(&child, arguments.front(), &files, nullptr, arguments.data(), environ) == 0)
        waitpid(child, &status, 0);
    posix_spawn_file_actions_destroy(&files);
    return status == 0;
}

using Inventory = std::map<std::string, TemporaryHome::Entry>;

void record(int parent, const char *name, const std::string &relative, Inventory &entries)
{
    struct stat status;
    require(fstatat(parent, name, &status, AT_SYMLINK_NOFOLLOW) == 0, "fstatat", FilePath::fromStdString(relative));
    entries.emplace(relative, TemporaryHome::Entry{.inode = status.st_ino,
                                                   .mode = status.st_mode,
                                                   .links = status.st_nlink,
                                                   .size = status.st_size,
                                                   .blocks = status.st_blocks,
                                                   .accessed = nanoseconds(status.st_atim),
                                                   .modified = nanoseconds(status.st_mtim),
                                                   .changed = nanoseconds(status.st_ctim)});
    if (!S_ISDIR(status.st_mode))
        return;
    const int folder = openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NOATIME | O_CLOEXEC);
    DIR *listing = folder < 0 ? nullptr : fdopendir(folder);
    if (listing == nullptr) // A folder that must not be read counts as one entry.
        return;
    while (const dirent *entry = readdir(listing)) {
        const std::string child = entry->d_name;
        if (child != "." && child != "..")
            record(dirfd(listing), child.c_str(), relative == "." ? child : relative + '/' + child, entries);
    }
    closedir(listing);
}

} // namespace

TemporaryHome::TemporaryHome()
    : TemporaryHome(QFile::encodeName(QDir::tempPath()))
{}

TemporaryHome::TemporaryHome(const FilePath &parent)
    : root(parent + "/tidlo-test-XXXXXX")
{
    require(mkdtemp(root.data()) != nullptr, "mkdtemp", root);
}

TemporaryHome::~TemporaryHome()
{
    // These tools cope with any depth, any name and any number of entries.
    if (!run({"rm", "-rf", "--", root}) && run({"chmod", "-R", "u+rwX", "--", root})) // A folder was read-only.
        run({"rm", "-rf", "--", root});
}

FilePath TemporaryHome::parentInMemory()
{
    return access("/dev/shm", W_OK) == 0 ? FilePath("/dev/shm") : QFile::encodeName(QDir::tempPath());
}

FilePath TemporaryHome::prepared(const FilePath &relative) const
{
    const FilePath path = root + '/' + relative;
    makeFolders(path.left(path.lastIndexOf('/')));
    return path;
}

FilePath TemporaryHome::folder(const FilePath &relative) const
{
    const FilePath path = root + '/' + relative;
    makeFolders(path);
    return path;
}

FilePath TemporaryHome::file(const FilePath &relative, qint64 bytes) const
{
    const FilePath path = prepared(relative);
    const int descriptor = open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    require(descriptor >= 0, "open", path);
    const std::vector<char> block(1 << 16, 'x');
    for (qint64 left = bytes; left > 0;) {
        const ssize_t written = write(descriptor, block.data(), std::min<size_t>(block.size(), left));
        require(written > 0, "write", path);
        left -= written;
    }
    close(descriptor);
    return path;
}

FilePath TemporaryHome::sparseFile(const FilePath &relative, qint64 bytes) const
{
    const FilePath path = file(relative, 0);
    require(truncate(path.constData(), bytes) == 0, "truncate", path);
    return path;
}

FilePath TemporaryHome::link(const FilePath &relative, const FilePath &target) const
{
    const FilePath path = prepared(relative);
    require(symlink(target.constData(), path.constData()) == 0, "symlink", path);
    return path;
}

FilePath TemporaryHome::hardLink(const FilePath &relative, const FilePath &other) const
{
    const FilePath path = prepared(relative);
    require(::link(other.constData(), path.constData()) == 0, "link", path);
    return path;
}

void TemporaryHome::setModified(const FilePath &relative, FileTime time) const
{
    const FilePath path = root + '/' + relative;
    const auto whole = std::chrono::floor<std::chrono::seconds>(time);
    const std::array<timespec, 2> times{
        timespec{.tv_sec = 0, .tv_nsec = UTIME_OMIT},
        timespec{.tv_sec = whole.time_since_epoch().count(), .tv_nsec = (time - whole).count()}};
    require(utimensat(AT_FDCWD, path.constData(), times.data(), AT_SYMLINK_NOFOLLOW) == 0, "utimensat", path);
}

std::map<std::string, TemporaryHome::Entry> TemporaryHome::inventory() const
{
    std::map<std::string, Entry> entries;
    record(AT_FDCWD, root.constData(), ".", entries);
    return entries;
}

} // namespace tidlo
