#pragma once

// The documented interfaces of macOS that its FolderReader asks, under the names that it uses, served by this system:
// see EmulatedSystem.cpp. In place of the header of this name.

#include <cstddef>
#include <cstdint>

#include <fcntl.h> // Before one of its names gets another meaning.
#include <sys/types.h>

using attrgroup_t = std::uint32_t;
using fsobj_type_t = std::uint32_t;

struct attrlist
{
    std::uint16_t bitmapcount, reserved;
    attrgroup_t commonattr, volattr, dirattr, fileattr, forkattr;
};

struct attribute_set_t
{
    attrgroup_t commonattr, volattr, dirattr, fileattr, forkattr;
};

struct attrreference_t
{
    std::int32_t attr_dataoffset; ///< From this record's own place.
    std::uint32_t attr_length;
};

constexpr std::uint16_t ATTR_BIT_MAP_COUNT = 5;
constexpr attrgroup_t ATTR_CMN_NAME = 0x00000001;
constexpr attrgroup_t ATTR_CMN_OBJTYPE = 0x00000008;
constexpr attrgroup_t ATTR_CMN_ERROR = 0x20000000;
constexpr attrgroup_t ATTR_CMN_RETURNED_ATTRS = 0x80000000;

/// Gives the number of records in \a buffer, 0 at the end of the listing, or -1 with errno set. The records hold what
/// FolderReader wants, whatever \a wanted says.
int getattrlistbulk(int folder, void *wanted, void *buffer, std::size_t size, std::uint64_t options);

constexpr int IOPOL_TYPE_VFS_ATIME_UPDATES = 2;
constexpr int IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES = 3;
constexpr int IOPOL_SCOPE_THREAD = 1;
constexpr int IOPOL_ATIME_UPDATES_OFF = 1;
constexpr int IOPOL_MATERIALIZE_DATALESS_FILES_OFF = 1;

/// Does nothing: nothing here is in a cloud, and access times are a matter of each opening.
inline int setiopolicy_np(int, int, int)
{
    return 0;
}

constexpr int O_NOFOLLOW_ANY = 0x20000000; ///< No link is followed, wherever in the path it stands.
int openOfMacOS(int folder, const char *path, int flags);
#define openat openOfMacOS

#define st_mtimespec st_mtim
