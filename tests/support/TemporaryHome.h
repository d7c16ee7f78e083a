#pragma once

#include "model/FilePath.h"
#include "platform/FileAttributes.h"

#include <map>
#include <string>

#include <sys/stat.h>

namespace tidlo {

/// A private home folder for a test, removed with all its content afterwards. Paths are relative to it and are raw
/// bytes; parent folders are made as needed. A failing system call ends the test program.
class TemporaryHome final
{
public:
    TemporaryHome();
    /// Below \a parent instead of the system's folder for temporary files.
    explicit TemporaryHome(const FilePath &parent);
    ~TemporaryHome();
    /// A parent in memory where the system has one, for trees so large that making them on a disk would take long.
    static FilePath parentInMemory();
    TemporaryHome(const TemporaryHome &) = delete;
    TemporaryHome &operator=(const TemporaryHome &) = delete;

    const FilePath &path() const { return root; }
    FilePath operator/(const FilePath &relative) const { return root + '/' + relative; }

    /// Each returns the absolute path of the new entry.
    FilePath folder(const FilePath &relative) const;
    FilePath file(const FilePath &relative, qint64 bytes = 4096) const;    ///< Filled, so that it is allocated.
    FilePath sparseFile(const FilePath &relative, qint64 bytes) const;     ///< Only the logical length.
    FilePath link(const FilePath &relative, const FilePath &target) const; ///< A symbolic link to the unchanged target.
    FilePath hardLink(const FilePath &relative, const FilePath &other) const; ///< To the absolute path of a file.

    /// Sets the modification time; of a link, that of the link itself.
    void setModified(const FilePath &relative, FileTime time) const;

    struct Entry
    {
        ino_t inode;
        mode_t mode;
        nlink_t links;
        off_t size;
        blkcnt_t blocks;
        std::chrono::nanoseconds accessed;
        std::chrono::nanoseconds modified;
        std::chrono::nanoseconds changed;
        bool operator==(const Entry &) const = default;
    };
    /// Every entry beneath the home by its relative path, the home itself as ".". Reading it changes no access time.
    std::map<std::string, Entry> inventory() const;

private:
    FilePath prepared(const FilePath &relative) const;

    FilePath root;
};

} // namespace tidlo
