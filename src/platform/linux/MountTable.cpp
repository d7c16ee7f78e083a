#include "platform/linux/MountTable.h"

#include "platform/Paths.h"
#include "platform/linux/OpenFolder.h"

#include <algorithm>

namespace tidlo {

namespace {

/// The kernel writes white space and backslashes as three octal digits.
FilePath unescaped(const QByteArray &field)
{
    FilePath path;
    for (qsizetype at = 0; at < field.size(); ++at) {
        bool isOctal = false;
        const int code = field.at(at) == '\\' ? field.mid(at + 1, 3).toInt(&isOctal, 8) : 0;
        path += isOctal ? static_cast<char>(code) : field.at(at);
        at += isOctal ? 3 : 0;
    }
    return path;
}

/// \a path, which is at or below \a from, with \a from replaced by \a to.
FilePath rebased(const FilePath &path, const FilePath &from, const FilePath &to)
{
    const FilePath relative = from == "/" ? path : path.mid(from.size());
    if (to == "/")
        return relative.isEmpty() ? to : relative;
    return relative == "/" ? to : to + relative;
}

} // namespace

bool FileSystemPlace::contains(const FileSystemPlace &other) const
{
    return device == other.device && isAtOrBelow(other.path, path);
}

MountTable::MountTable(const QByteArray &mountinfo)
{
    for (const QByteArray &line : mountinfo.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype end = fields.indexOf("-", 5); // The end of the optional fields: see proc(5).
        if (fields.size() < 5)
            continue;
        mounts.append({.id = fields[0].toULongLong(),
                       .parent = fields[1].toULongLong(),
                       .device = fields[2],
                       .root = unescaped(fields[3]),
                       .point = unescaped(fields[4]),
                       .type = end < 0 ? FilePath() : fields.value(end + 1),
                       .source = end < 0 ? FilePath() : unescaped(fields.value(end + 2))});
    }
}

Mount MountTable::mount(quint64 id) const
{
    const auto found = std::ranges::find(mounts, id, &Mount::id);
    return found == mounts.end() ? Mount{.id = id} : *found;
}

QList<FilePath> MountTable::sourcesOf(const FilePath &device) const
{
    QList<FilePath> sources;
    for (const Mount &mount : mounts) {
        if (mount.device == device)
            sources.append(mount.source);
    }
    return sources;
}

std::optional<FileSystemPlace> MountTable::place(quint64 id, const FilePath &path) const
{
    const Mount holder = mount(id);
    if (!isAtOrBelow(path, holder.point))
        return std::nullopt;
    return FileSystemPlace{.device = holder.device, .path = rebased(path, holder.point, holder.root)};
}

bool MountTable::hasMountWithin(const FileSystemPlace &folder) const
{
    return std::ranges::any_of(mounts, [&](const Mount &inner) {
        const std::optional<FileSystemPlace> point = place(inner.parent, inner.point);
        return point && folder.contains(*point);
    });
}

OrError<MountTable> readMounts(const SystemCalls &calls)
{
    const OrError<QByteArray> text = readSystemFile(calls, "/proc/self/mountinfo");
    return text ? OrError(MountTable(*text)) : Errno{text.error()};
}

} // namespace tidlo
