#include "platform/linux/TrashList.h"

#include "platform/FolderReader.h"
#include "platform/linux/TrashRecord.h"

#include <QDateTime>

#include <algorithm>
#include <cerrno>
#include <tuple>

namespace tidlo {

namespace {

/// The limit for all paths together. No real Trash needs more, but a hostile disk may.
constexpr qint64 mostBytesOfPaths = 64 << 20;

/// The local time in a record.
std::optional<FileTime> timeOf(const QByteArray &date)
{
    constexpr qsizetype longest = 40; // With fractions of a second and a time zone.
    const QDateTime time =
        date.size() > longest ? QDateTime() : QDateTime::fromString(QString::fromLatin1(date), Qt::ISODate);
    return time.isValid() ? std::optional(fileTime(time.toSecsSinceEpoch(), 0)) : std::nullopt;
}

Descriptor openListing(const SystemCalls &calls, int folder)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    Descriptor listing(calls.openat(folder, ".", flags | O_NOATIME, 0));
    return listing.error() == EPERM ? Descriptor(calls.openat(folder, ".", flags, 0)) : std::move(listing);
}

} // namespace

void TrashList::read(const UserTrash &trash)
{
    const auto fail = [&](int error) {
        addUnread(trash.folder.path(), QStringLiteral("Its records cannot be listed: ") + qt_error_string(error));
    };
    const Descriptor listing = openListing(calls, trash.folder.info());
    if (!listing.isValid())
        return fail(listing.error());
    FolderReader reader;
    while (!stop.stop_requested()) {
        const FolderReader::Batch batch = reader.readBatch(listing.get());
        if (batch == FolderReader::Batch::failed)
            return fail(reader.error());
        if (batch == FolderReader::Batch::end)
            return;
        while (const std::optional<FolderReader::Entry> entry = reader.nextEntry()) {
            const bool mayBeRecord = entry->kind == FileKind::regular || entry->kind == FileKind::unknown;
            const bool isRecord = mayBeRecord && entry->name.endsWith(trashRecordSuffix);
            if (const int error = isRecord ? readRecord(trash, entry->name.toByteArray()) : 0)
                return addUnread(trash.folder.path(),
                                 QStringLiteral("Its items cannot be looked at: ") + qt_error_string(error));
            if (stop.stop_requested())
                return;
        }
    }
}

int TrashList::readRecord(const UserTrash &trash, const FilePath &recordName)
{
    const FilePath name = recordName.chopped(trashRecordSuffix.size());
    struct statx status;
    if (name.isEmpty())
        return 0;
    if (calls.statx(trash.folder.files(), name.constData(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_TYPE,
                    &status) != 0)
        return errno == ENOENT ? 0 : errno; // A record without an item.
    const OrError<TrashRecord> record = readTrashRecord(calls, trash.folder.info(), recordName);
    const std::optional<FilePath> origin = record ? trash.originOf(record->path) : std::nullopt;
    if (!origin || bytesOfPaths + origin->size() > mostBytesOfPaths) {
        ++unknown;
        return 0;
    }
    bytesOfPaths += origin->size();
    found.append({.listed = {.item = {.trash = trash.folder.path(), .name = name, .origin = *origin},
                             .moved = timeOf(record->date)},
                  .written = record->written});
    return 0;
}

TrashContents TrashList::contents() &&
{
    const auto order = [](const Found &one) {
        return std::tuple(one.listed.moved.value_or(FileTime::min()), one.written);
    };
    std::ranges::stable_sort(found, std::ranges::greater(), order);
    TrashContents contents{.items = {}, .unknown = unknown, .unread = unread};
    contents.items.reserve(found.size());
    for (Found &each : found)
        contents.items.append(std::move(each.listed));
    return contents;
}

} // namespace tidlo
