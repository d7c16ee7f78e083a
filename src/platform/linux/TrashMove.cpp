#include "platform/linux/TrashMove.h"

#include "platform/Trash.h"
#include "platform/linux/ExclusiveRename.h"
#include "platform/linux/TrashFolder.h"
#include "platform/linux/TrashRecord.h"

#include <QRandomGenerator>

#include <cerrno>

namespace tidlo {

namespace {

constexpr int mostNames = 50;
constexpr int exclusively = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;

/// Counts up at first; if many items have the same name, counting further would take longer for each of them.
quint32 numberOfTry(int attempt)
{
    constexpr int counted = 9;
    return attempt <= counted ? attempt : QRandomGenerator::system()->bounded(counted + 1, 1'000'000'000);
}

bool isThere(const OrError<Identity> &identity)
{
    return identity && *identity == Identity::same;
}

} // namespace

TrashOutcome TrashMove::run(const QByteArray &record) const
{
    for (int attempt = 1; attempt <= mostNames; ++attempt) {
        const FilePath name = trashName(item.name(), numberOfTry(attempt), trash.longestName());
        if (const std::optional<TrashOutcome> outcome = moveAs(name, record))
            return *outcome;
    }
    return TrashOutcome::failed(QStringLiteral("No name is free in the Trash"), EEXIST);
}

std::optional<TrashOutcome> TrashMove::moveAs(const FilePath &name, const QByteArray &record) const
{
    const FilePath recordName = trashRecordName(name);
    int error = writeRecord(recordName, record);
    if (error == EEXIST)
        return std::nullopt;
    if (error != 0)
        return TrashOutcome::failed(QStringLiteral("Its record cannot be written"), error);

    const NameInFolder from{.folder = item.folder(), .name = item.name()};
    error = renameWithoutReplacing(calls, from, {.folder = trash.files(), .name = name}, item.isFolder());
    if (error == 0 || hasArrived(name))
        return checked(name);
    removeRecord(recordName);
    if (error == EEXIST)
        return std::nullopt;
    return error == ENOENT && hasLeft() ? TrashOutcome::gone()
                                        : TrashOutcome::failed(QStringLiteral("It cannot be moved"), error);
}

int TrashMove::writeRecord(const FilePath &recordName, const QByteArray &record) const
{
    const int file = calls.openat(trash.info(), recordName.constData(), exclusively, 0600);
    if (file < 0)
        return errno;
    int error = 0;
    for (qsizetype at = 0; at < record.size() && error == 0;) {
        const ssize_t written = calls.pwrite(file, record.constData() + at, record.size() - at, at);
        error = written < 0 ? errno : written == 0 ? EIO : 0;
        at += written;
    }
    if (error == 0 && calls.fsync(file) != 0)
        error = errno;
    if (calls.close(file) != 0 && error == 0)
        error = errno;
    if (error != 0)
        removeRecord(recordName);
    return error;
}

void TrashMove::removeRecord(const FilePath &recordName) const
{
    calls.unlinkat(trash.info(), recordName.constData(), 0); // A leftover record without an item is harmless.
}

bool TrashMove::hasLeft() const
{
    const OrError<Identity> there = identityAt(calls, item.held(), item.folder(), item.name().constData());
    return there && *there != Identity::same;
}

bool TrashMove::hasArrived(const FilePath &name) const
{
    return hasLeft() && isThere(identityAt(calls, item.held(), trash.files(), name.constData()));
}

TrashOutcome TrashMove::checked(const FilePath &name) const
{
    const OrError<Identity> arrived = identityAt(calls, item.held(), trash.files(), name.constData());
    if (arrived && *arrived != Identity::different) // If the item has been taken out again, whoever did that knows
                                                    // where it is.
        return movedAs(name);
    const bool isBack =
        calls.renameat2(trash.files(), name.constData(), item.folder(), item.name().constData(), RENAME_NOREPLACE) == 0;
    if (isBack)
        removeRecord(trashRecordName(name));
    if (!arrived)
        return isBack ? TrashOutcome::failed(QStringLiteral("What arrived in the Trash cannot be checked"),
                                             arrived.error())
                      : movedAs(name);
    if (isBack)
        return {.kind = TrashOutcome::Kind::failed,
                .reason = QStringLiteral("Something else took its place meanwhile."),
                .error = ESTALE};
    return {.kind = TrashOutcome::Kind::anotherMoved,
            .reason = QStringLiteral("Something else took its place meanwhile, and is in the Trash now."),
            .error = ESTALE};
}

TrashOutcome TrashMove::movedAs(const FilePath &name) const
{
    // Read again: on layered file systems the move may have changed it.
    const OrError<ItemIdentity> identity = identityOf(calls, item.held());
    return TrashOutcome::moved({.trash = trash.path(),
                                .name = name,
                                .origin = item.path(),
                                .identity = identity ? std::optional(*identity) : std::nullopt});
}

} // namespace tidlo
