#pragma once

#include "platform/TrashContents.h"
#include "platform/linux/UserTrash.h"

namespace tidlo {

/// Reads the records of one Trash after another. What it keeps in memory is bounded, whatever they hold.
class TrashList final
{
public:
    /// \a calls must outlive this.
    TrashList(const SystemCalls &calls, std::stop_token stop)
        : calls(calls)
        , stop(std::move(stop))
    {}

    void read(const UserTrash &trash);
    void addUnread(const FilePath &path, const QString &reason) { unread.append({.path = path, .reason = reason}); }

    /// All that was found, in its order.
    TrashContents contents() &&;

private:
    struct Found
    {
        ListedItem listed;
        FileTime written; ///< Its record: many items may be moved within the second that records tell.
    };

    /// Gives 0, or the errno where it is not told whether the item of the record is there.
    int readRecord(const UserTrash &trash, const FilePath &recordName);

    const SystemCalls &calls;
    std::stop_token stop;
    QList<Found> found;
    qint64 bytesOfPaths = 0;
    qint64 unknown = 0;
    QList<UnreadTrash> unread;
};

} // namespace tidlo
