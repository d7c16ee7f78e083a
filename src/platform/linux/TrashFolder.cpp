#include "platform/linux/TrashFolder.h"

#include "platform/Paths.h"
#include "platform/Trash.h"
#include "platform/linux/TrashRecord.h"

#include <algorithm>
#include <cerrno>

namespace tidlo {

namespace {

constexpr int asRealFolder = asFolder | O_NOFOLLOW;

std::optional<TrashOutcome> checkOwner(const SystemCalls &calls, int folder)
{
    struct statx status;
    if (calls.statx(folder, "", AT_EMPTY_PATH, STATX_UID, &status) != 0)
        return TrashOutcome::failed(QStringLiteral("The system does not say whose Trash it is"), errno);
    if (status.stx_uid != geteuid())
        return TrashOutcome::refused(QStringLiteral("The Trash there belongs to somebody else."));
    return std::nullopt;
}

/// The problem with \a opened, which must be a real folder and the user's own; nothing if there is none.
std::optional<TrashOutcome> problemOf(const SystemCalls &calls, const Descriptor &opened)
{
    if (opened.error() == ENOTDIR)
        return TrashOutcome::refused(QStringLiteral("The Trash there is a link or a file, not a folder."));
    if (!opened.isValid())
        return TrashOutcome::failed(QStringLiteral("The Trash there cannot be opened"), opened.error());
    return checkOwner(calls, opened.get());
}

/// Opens the folder \a name as \a opened. It is made if it is missing.
std::optional<TrashOutcome> openOwn(const SystemCalls &calls, int parent, const FilePath &name, Descriptor &opened)
{
    opened = Descriptor(calls.openat(parent, name.constData(), asRealFolder, 0));
    if (opened.error() == ENOENT) {
        if (calls.mkdirat(parent, name.constData(), 0700) != 0 && errno != EEXIST) // Another program may be faster.
            return TrashOutcome::failed(QStringLiteral("The Trash there cannot be made"), errno);
        opened = Descriptor(calls.openat(parent, name.constData(), asRealFolder, 0));
    }
    return problemOf(calls, opened);
}

/// Whether a folder of this name at the top of a mount is a Trash, whoever owns it.
bool isTrashName(const FilePath &name)
{
    const QByteArrayView prefix(".Trash-");
    return name == ".Trash" || (name.startsWith(prefix) && name.size() > prefix.size() &&
                                std::ranges::all_of(name.mid(prefix.size()), isdigit));
}

constexpr qsizetype longestExtension = 32; ///< A longer one is not a file type, just a dot in a name.

/// Where the extension begins, including the dot; the end of the name if there is none.
qsizetype extensionStart(const FilePath &name)
{
    const qsizetype dot = name.lastIndexOf('.');
    return dot <= 0 || name.size() - dot > longestExtension ? name.size() : dot;
}

/// At most \a size bytes of \a text, without cutting a UTF-8 character.
FilePath cut(const FilePath &text, qsizetype size)
{
    if (text.size() <= size)
        return text;
    constexpr qsizetype longestCharacter = 4;
    for (qsizetype end = size; end > size - longestCharacter && end > 0; --end) {
        const bool continuesCharacter = (static_cast<unsigned char>(text.at(end)) & 0xc0) == 0x80;
        if (!continuesCharacter)
            return text.left(end);
    }
    return text.left(size); // Not UTF-8.
}

} // namespace

std::optional<TrashOutcome> TrashFolder::openInHome(const SystemCalls &calls, const PlannedFolder &trash)
{
    ownPath = trash.path();
    if (trash.missing.isEmpty()) {
        const auto problem = checkOwner(calls, trash.nearest.descriptor.get());
        return problem ? problem : openInside(calls, trash.nearest.descriptor);
    }
    Descriptor made;
    for (const FilePath &name : trash.missing) {
        Descriptor next;
        const int parent = made.isValid() ? made.get() : trash.nearest.descriptor.get();
        if (auto problem = openOwn(calls, parent, name, next))
            return problem;
        made = std::move(next);
    }
    return openInside(calls, made);
}

std::optional<TrashOutcome> TrashFolder::openOnMount(const SystemCalls &calls, const Mount &mount)
{
    const OrError<OpenFolder> top = openFolder(calls, mount.point);
    if (!top || top->mount != mount.id)
        return TrashOutcome::failed(QStringLiteral("The top of its volume cannot be opened"),
                                    top ? ESTALE : top.error());
    base = top->path;
    Descriptor trash;
    const Descriptor all = openTrashForEverybody(calls, top->descriptor);
    ownPath = joined(base, ".Trash/" + trashNameAmongAll());
    if (all.isValid() && !openOwn(calls, all.get(), trashNameAmongAll(), trash))
        return openInside(calls, trash);
    ownPath = joined(base, trashNameAtTop());
    const auto problem = openOwn(calls, top->descriptor.get(), trashNameAtTop(), trash);
    return problem ? problem : openInside(calls, trash);
}

std::optional<TrashOutcome> TrashFolder::openExisting(const SystemCalls &calls, const Descriptor &folder,
                                                      const FilePath &path)
{
    ownPath = path;
    if (auto problem = checkOwner(calls, folder.get()))
        return problem;
    items = Descriptor(calls.openat(folder.get(), "files", asRealFolder, 0));
    records = Descriptor(calls.openat(folder.get(), "info", asRealFolder, 0));
    if (items.error() == ENOENT || records.error() == ENOENT)
        return TrashOutcome::gone();
    const auto problem = problemOf(calls, items);
    return problem ? problem : problemOf(calls, records);
}

std::optional<TrashOutcome> TrashFolder::openInside(const SystemCalls &calls, const Descriptor &trash)
{
    if (auto problem = openOwn(calls, trash.get(), "files", items))
        return problem;
    if (auto problem = openOwn(calls, trash.get(), "info", records))
        return problem;
    struct statvfs status;
    if (calls.fstatvfs(records.get(), &status) == 0)
        nameLimit = std::min<qsizetype>(NAME_MAX, static_cast<qsizetype>(status.f_namemax));
    return std::nullopt;
}

FilePath TrashFolder::recordedPath(const FilePath &path) const
{
    return base.isEmpty() ? path : path.mid(joined(base, {}).size());
}

Descriptor openTrashForEverybody(const SystemCalls &calls, const Descriptor &top)
{
    Descriptor all(calls.openat(top.get(), ".Trash", asRealFolder, 0));
    struct statx status;
    const bool keepsApart = all.isValid() && calls.statx(all.get(), "", AT_EMPTY_PATH, STATX_MODE, &status) == 0 &&
                            (status.stx_mode & S_ISVTX) != 0;
    return keepsApart ? std::move(all) : Descriptor();
}

FilePath trashNameAmongAll()
{
    return QByteArray::number(geteuid());
}

FilePath trashNameAtTop()
{
    return ".Trash-" + trashNameAmongAll();
}

bool leadsThroughTrash(const FilePath &path)
{
    return (path + '/').contains("/.local/share/Trash/") || std::ranges::any_of(path.split('/'), isTrashName);
}

FilePath trashName(const FilePath &name, quint32 number, qsizetype limit)
{
    const qsizetype dot = extensionStart(name);
    const FilePath ending = (number > 1 ? ' ' + QByteArray::number(number) : QByteArray()) + name.mid(dot);
    const qsizetype room = limit - trashRecordSuffix.size() - ending.size();
    return cut(name.left(dot), std::max<qsizetype>(room, 1)) + ending;
}

} // namespace tidlo
