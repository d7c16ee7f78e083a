#pragma once

#include "platform/linux/TrashFolder.h"
#include "platform/linux/TrashItem.h"

namespace tidlo {

/// Moves one item into one Trash: first its record is written to the disk completely, then the item is renamed.
class TrashMove final
{
public:
    /// All three must outlive this.
    TrashMove(const SystemCalls &calls, const TrashItem &item, const TrashFolder &trash)
        : calls(calls)
        , item(item)
        , trash(trash)
    {}

    /// Moves the item, with \a record as the text of the record. It ends in bounded time, whatever the system answers.
    TrashOutcome run(const QByteArray &record) const;

private:
    /// Returns nothing if \a name is taken.
    std::optional<TrashOutcome> moveAs(const FilePath &name, const QByteArray &record) const;

    /// Returns 0 or the errno.
    int writeRecord(const FilePath &recordName, const QByteArray &record) const;
    void removeRecord(const FilePath &recordName) const;
    bool hasLeft() const;
    /// A network file system may report an error although the move succeeded.
    bool hasArrived(const FilePath &name) const;
    /// Checks that the right item was renamed; if not, it is moved back.
    TrashOutcome checked(const FilePath &name) const;
    /// The outcome for an item that is in the Trash as \a name.
    TrashOutcome movedAs(const FilePath &name) const;

    const SystemCalls &calls;
    const TrashItem &item;
    const TrashFolder &trash;
};

} // namespace tidlo
