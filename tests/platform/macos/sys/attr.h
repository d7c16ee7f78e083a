#pragma once

// The documented interfaces of macOS that its FolderReader uses, with their names, emulated on this system: see
// EmulatedSystem.cpp. Replaces the system header of this name.

#include <cstddef>
#include <cstdint>

#include <fcntl.h> // Included before one of its names gets another meaning below.
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
    std::int32_t attr_dataoffset; ///< Relative to the address of this record.
    std::uint32_t attr_length;
};

constexpr std::uint16_t ATTR_BIT_MAP_COUNT = 5;
constexpr attrgroup_t ATTR_CMN_NAME = 0x00000001;
constexpr attrgroup_t ATTR_CMN_OBJTYPE = 0x00000008;
constexpr attrgroup_t ATTR_CMN_ERROR = 0x20000000;
constexpr attrgroup_t ATTR_CMN_RETURNED_ATTRS = 0x80000000;

/// Returns the number of records in \a buffer, 0 at the end of the listing, or -1 with errno set. The records hold the
/// attributes that FolderReader needs, whatever \a wanted says.
int getattrlistbulk(int folder, void *wanted, void *buffer, std::size_t size, std::uint64_t options);

constexpr int IOPOL_TYPE_VFS_ATIME_UPDATES = 2;
constexpr int IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES = 3;
constexpr int IOPOL_SCOPE_THREAD = 1;
constexpr int IOPOL_ATIME_UPDATES_OFF = 1;
constexpr int IOPOL_MATERIALIZE_DATALESS_FILES_OFF = 1;

/// Does nothing: there are no cloud files here, and access times are set at each opening.
inline int setiopolicy_np(int, int, int)
{
    return 0;
}

constexpr int O_NOFOLLOW_ANY = 0x20000000; ///< No link is followed anywhere in the path.
int openOfMacOS(int folder, const char *path, int flags);
#define openat openOfMacOS

#define st_mtimespec st_mtim
