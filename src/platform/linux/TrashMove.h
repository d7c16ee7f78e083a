#pragma once

#include "platform/linux/TrashFolder.h"
#include "platform/linux/TrashItem.h"

namespace tidlo {

/// Moves one item into one Trash: first its record, whole and on the disk, then the item itself, by one rename.
class TrashMove final
{
public:
    /// All three must outlive this.
    TrashMove(const SystemCalls &calls, const TrashItem &item, const TrashFolder &trash)
        : calls(calls)
        , item(item)
        , trash(trash)
    {}

    /// Does it, with \a record as the text of the record. It ends in bounded time, whatever the system answers.
    TrashOutcome run(const QByteArray &record) const;

private:
    /// Nothing when \a name is taken.
    std::optional<TrashOutcome> moveAs(const FilePath &name, const QByteArray &record) const;

    /// Returns 0 or the errno.
    int writeRecord(const FilePath &recordName, const QByteArray &record) const;
    void removeRecord(const FilePath &recordName) const;
    bool hasLeft() const;
    /// A network file system may report an error for what it did.
    bool hasArrived(const FilePath &name) const;
    /// Makes sure that what was renamed is what was meant; if not, it goes back.
    TrashOutcome checked(const FilePath &name) const;
    /// That it is in the Trash as \a name.
    TrashOutcome movedAs(const FilePath &name) const;

    const SystemCalls &calls;
    const TrashItem &item;
    const TrashFolder &trash;
};

} // namespace tidlo
