#pragma once

#include "platform/TrashContents.h"
#include "platform/linux/UserTrash.h"

namespace tidlo {

/// Reads the records of one Trash after another. Its memory is bounded, whatever the records contain.
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

    /// Everything that was found, in order.
    TrashContents contents() &&;

private:
    struct Found
    {
        ListedItem listed;
        FileTime written; ///< The time of its record's file: records only have seconds, in which many items may be
                          ///< moved.
    };

    /// Returns 0, or the errno if it is unknown whether the record's item exists.
    int readRecord(const UserTrash &trash, const FilePath &recordName);

    const SystemCalls &calls;
    std::stop_token stop;
    QList<Found> found;
    qint64 bytesOfPaths = 0;
    qint64 unknown = 0;
    QList<UnreadTrash> unread;
};

} // namespace tidlo
