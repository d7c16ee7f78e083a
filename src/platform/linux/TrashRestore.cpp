#include "platform/linux/TrashRestore.h"

#include "platform/Paths.h"
#include "platform/linux/TrashRecord.h"
#include "platform/linux/WayBack.h"

#include <cerrno>

namespace tidlo {

namespace {

bool isName(const FilePath &name)
{
    return !name.isEmpty() && name != "." && name != ".." && !name.contains('/') && !name.contains('\0');
}

bool isElsewhere(const OrError<Identity> &identity)
{
    return identity && *identity != Identity::same;
}

} // namespace

TrashOutcome TrashRestore::run(const TrashedItem &item) const
{
    // The item is held before its record is read: the held item is the one that will arrive, so the record was its own.
    Held held;
    if (const auto outcome = hold(item, held))
        return *outcome;
    const OrError<TrashRecord> record = readTrashRecord(calls, trash.folder.info(), trashRecordName(item.name));
    if (const int error = record.error(); error == ENOENT || error == EBADMSG || error == EFBIG)
        return TrashOutcome::refused(QStringLiteral("There is no record of where it was."));
    if (!record)
        return TrashOutcome::failed(QStringLiteral("Its record cannot be read"), record.error());
    const std::optional<FilePath> origin = trash.originOf(record->path);
    if (!origin)
        return TrashOutcome::refused(
            QStringLiteral("Its record names a place that is not on the volume of its Trash."));
    if (*origin != item.origin)
        return TrashOutcome::refused(QStringLiteral("Its record now names another place."));

    Descriptor folder;
    if (const auto outcome = openFolderOf(*origin, folder))
        return *outcome;
    TrashOutcome outcome =
        moveTo({.folder = folder.get(), .name = lastPathComponent(*origin).toByteArray()}, item, held);
    if (outcome.kind == TrashOutcome::Kind::moved)
        removeRecord(trashRecordName(item.name), record->identity);
    return outcome;
}

std::optional<TrashOutcome> TrashRestore::hold(const TrashedItem &item, Held &held) const
{
    if (!isName(item.name))
        return TrashOutcome::gone();
    constexpr int itself = O_PATH | O_NOFOLLOW | O_CLOEXEC;
    held.descriptor = Descriptor(calls.openat(trash.folder.files(), item.name.constData(), itself, 0));
    if (held.descriptor.error() == ENOENT)
        return TrashOutcome::gone();
    if (!held.descriptor.isValid())
        return TrashOutcome::failed(QStringLiteral("It cannot be opened"), held.descriptor.error());
    struct statx status;
    if (calls.statx(held.descriptor.get(), "", AT_EMPTY_PATH, STATX_TYPE | STATX_INO, &status) != 0)
        return TrashOutcome::failed(QStringLiteral("The system does not say what it is"), errno);
    if (item.identity && *item.identity != identityIn(status))
        return TrashOutcome::refused(QStringLiteral("Something else now has its name in the Trash."));
    held.isFolder = S_ISDIR(status.stx_mode);
    return std::nullopt;
}

std::optional<TrashOutcome> TrashRestore::openFolderOf(const FilePath &origin, Descriptor &folder) const
{
    if (leadsThroughTrash(origin) || isAtOrBelow(origin, trash.folder.path()))
        return TrashOutcome::refused(QStringLiteral("Its place is in a Trash."));
    if (!isAtOrBelow(origin, trash.top.path))
        return TrashOutcome::refused(QStringLiteral("Its place is on another volume than its Trash."));
    const FilePath path = origin.mid(joined(trash.top.path, {}).size());
    return openWayBack(calls, trash.top, path.left(qMax<qsizetype>(path.lastIndexOf('/'), 0)), folder);
}

TrashOutcome TrashRestore::moveTo(const NameInFolder &place, const TrashedItem &item, const Held &held) const
{
    const int error = renameWithoutReplacing(calls, inTrash(item), place, held.isFolder);
    if (error == 0)
        return checked(place, item, held);
    const bool hasLeft = isElsewhere(find(held, inTrash(item)));
    const OrError<Identity> there = find(held, place);
    if (hasLeft && there && *there == Identity::same) // A network file system may report an error although the move
                                                      // succeeded.
        return TrashOutcome{.kind = TrashOutcome::Kind::moved};
    if (error == EEXIST)
        return TrashOutcome::refused(QStringLiteral("Something else is at its place by now."));
    return error == ENOENT && hasLeft ? TrashOutcome::gone()
                                      : TrashOutcome::failed(QStringLiteral("It cannot be moved back"), error);
}

TrashOutcome TrashRestore::checked(const NameInFolder &place, const TrashedItem &item, const Held &held) const
{
    const OrError<Identity> arrived = find(held, place);
    if (arrived && *arrived != Identity::different) // If the item has been taken away again, whoever did that knows
                                                    // where it is.
        return TrashOutcome{.kind = TrashOutcome::Kind::moved};
    const NameInFolder trashed = inTrash(item);
    const bool isBack = calls.renameat2(place.folder, place.name.constData(), trashed.folder, trashed.name.constData(),
                                        RENAME_NOREPLACE) == 0;
    if (!arrived)
        return isBack ? TrashOutcome::failed(QStringLiteral("What arrived at its place cannot be checked"),
                                             arrived.error())
                      : TrashOutcome{.kind = TrashOutcome::Kind::moved};
    if (isBack)
        return {.kind = TrashOutcome::Kind::failed,
                .reason = QStringLiteral("Something else took its name in the Trash meanwhile."),
                .error = ESTALE};
    return {.kind = TrashOutcome::Kind::anotherMoved,
            .reason = QStringLiteral("Something else took its name in the Trash meanwhile, and is at its place now."),
            .error = ESTALE};
}

OrError<Identity> TrashRestore::find(const Held &held, const NameInFolder &place) const
{
    return identityAt(calls, held.descriptor.get(), place.folder, place.name.constData());
}

void TrashRestore::removeRecord(const FilePath &name, const ItemIdentity &record) const
{
    struct statx status;
    const int info = trash.folder.info();
    if (calls.statx(info, name.constData(), AT_SYMLINK_NOFOLLOW, STATX_INO, &status) == 0 &&
        identityIn(status) == record)
        calls.unlinkat(info, name.constData(), 0); // A leftover record without an item is harmless.
}

} // namespace tidlo
