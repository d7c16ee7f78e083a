// Implements the calls of sys/attr.h beside this file.

#include "platform/macos/sys/attr.h"
#include "platform/macos/sys/vnode.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include <dirent.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

fsobj_type_t typeOf(unsigned char type)
{
    switch (type) {
    case DT_REG:
        return VREG;
    case DT_DIR:
        return VDIR;
    case DT_LNK:
        return VLNK;
    case DT_BLK:
        return VBLK;
    case DT_CHR:
        return VCHR;
    case DT_FIFO:
        return VFIFO;
    case DT_SOCK:
        return VSOCK;
    default:
        return VNON;
    }
}

template <typename Value>
void append(std::string &record, const Value &value)
{
    record.append(reinterpret_cast<const char *>(&value), sizeof value);
}

/// A record with the attributes that \a told names: its length and that set, then the values in the order of the man
/// page, then the name, to which the name's value refers.
std::string recordOf(attrgroup_t told, std::string_view name, fsobj_type_t type)
{
    std::string record(sizeof(std::uint32_t), '\0');
    append(record, attribute_set_t{told | ATTR_CMN_RETURNED_ATTRS, 0, 0, 0, 0});
    if ((told & ATTR_CMN_ERROR) != 0)
        append(record, std::uint32_t(EACCES));
    const std::size_t reference = record.size();
    if ((told & ATTR_CMN_NAME) != 0)
        append(record, attrreference_t());
    if ((told & ATTR_CMN_OBJTYPE) != 0)
        append(record, type);
    if ((told & ATTR_CMN_NAME) != 0) {
        const attrreference_t place{static_cast<std::int32_t>(record.size() - reference),
                                    static_cast<std::uint32_t>(name.size() + 1)};
        std::memcpy(record.data() + reference, &place, sizeof place);
        record.append(name).append(1, '\0');
    }
    constexpr std::size_t alignment = 8;
    record.resize((record.size() + alignment - 1) / alignment * alignment);
    const auto length = static_cast<std::uint32_t>(record.size());
    std::memcpy(record.data(), &length, sizeof length);
    return record;
}

/// The records for one entry. With TIDLO_LISTING_ERRORS in the environment, every third entry becomes two errors: one
/// without a name, as for an item that has just vanished, and one with a name but no type.
std::string recordsOf(const dirent64 &entry, int &count)
{
    static const bool hasErrors = std::getenv("TIDLO_LISTING_ERRORS") != nullptr;
    const std::string_view name(entry.d_name);
    if (name == "." || name == "..")
        return {};
    ++count;
    if (!hasErrors || count % 3 != 0)
        return recordOf(ATTR_CMN_NAME | ATTR_CMN_OBJTYPE, name, typeOf(entry.d_type));
    ++count;
    return recordOf(ATTR_CMN_ERROR, {}, VNON) + recordOf(ATTR_CMN_ERROR | ATTR_CMN_NAME, name, VNON);
}

} // namespace

int getattrlistbulk(int folder, void *, void *buffer, std::size_t size, std::uint64_t)
{
    std::size_t used = 0;
    int count = 0;
    while (true) {
        alignas(dirent64) std::array<char, 1024> entries;
        off_t before = lseek(folder, 0, SEEK_CUR);
        const long filled = syscall(SYS_getdents64, folder, entries.data(), entries.size());
        if (filled <= 0)
            return count > 0 ? count : static_cast<int>(filled);
        for (long position = 0; position < filled;) {
            const auto *entry = reinterpret_cast<const dirent64 *>(entries.data() + position);
            int countWithThese = count;
            const std::string records = recordsOf(*entry, countWithThese);
            if (used + records.size() > size) { // It is left for the next call.
                lseek(folder, before, SEEK_SET);
                return count;
            }
            std::memcpy(static_cast<char *>(buffer) + used, records.data(), records.size());
            used += records.size();
            count = countWithThese;
            before = entry->d_off;
            position += entry->d_reclen;
        }
    }
}

#undef openat

int openOfMacOS(int folder, const char *path, int flags)
{
    if ((flags & O_NOFOLLOW_ANY) == 0)
        return openat(folder, path, flags);
    open_how how{};
    how.flags = static_cast<std::uint64_t>(flags & ~O_NOFOLLOW_ANY);
    how.resolve = RESOLVE_NO_SYMLINKS;
    return static_cast<int>(syscall(SYS_openat2, folder, path, &how, sizeof how));
}
