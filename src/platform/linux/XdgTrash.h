#pragma once

#include "model/FilePath.h"
#include "platform/TrashContents.h"
#include "platform/linux/SystemCalls.h"

#include <ctime>

namespace tidlo {

/// The Trash of the freedesktop.org Trash specification 1.0: that of the home folder for items on the same mount, and
/// otherwise the one at the top of the item's own mount. Has no state, so any thread may use it.
class XdgTrash final
{
public:
    /// \a dataHome is the folder for programs' data, usually "~/.local/share".
    XdgTrash(FilePath home, FilePath dataHome, SystemCalls calls = {})
        : home(std::move(home))
        , dataHome(std::move(dataHome))
        , calls(uninterrupted(std::move(calls)))
    {}

    /// Moves the item at \a path itself, without following a link, and records \a now as its time. At every moment,
    /// whatever fails or is killed, the item is at its place, or in the Trash with a complete record of where it was.
    TrashOutcome move(const FilePath &path, std::time_t now) const;

    /// As leftByTrash.
    QList<bool> leaves(const QList<FilePath> &paths) const;

    /// As restoreFromTrash. At every moment each item is in the Trash with its record, or at its place.
    QList<TrashOutcome> restore(const QList<TrashedItem> &items, const std::function<bool()> &stopRequested) const;

    /// As listTrashes.
    TrashContents list(std::stop_token stop) const;

private:
    FilePath home;
    FilePath dataHome;
    SystemCalls calls;
};

} // namespace tidlo
