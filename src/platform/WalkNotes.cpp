#include "platform/WalkNotes.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace tidlo {

void WalkNotes::setLinked(const FilePath &item, const QList<LinkedFile> &files)
{
    const std::lock_guard lock(mutex);
    if (files.isEmpty())
        linkedFiles.remove(item);
    else
        linkedFiles.insert(item, files);
}

void WalkNotes::addUnread(const FilePath &folder, int error)
{
    constexpr std::array otherwise{0, ENOENT, ENOTDIR, ELOOP, EXDEV};
    if (std::ranges::find(otherwise, error) != otherwise.end())
        return;
    const std::lock_guard lock(mutex);
    const qsizetype before = unreadKnown.size();
    unreadKnown.insert(qHash(folder));
    if (unreadKnown.size() == before)
        return;
    unreadFirst.emplace(folder, error);
    if (unreadFirst.size() > UnreadFolders::told)
        unreadFirst.erase(std::prev(unreadFirst.end()));
}

QHash<FilePath, QList<LinkedFile>> WalkNotes::linked() const
{
    const std::lock_guard lock(mutex);
    return linkedFiles;
}

UnreadFolders WalkNotes::unread() const
{
    const std::lock_guard lock(mutex);
    UnreadFolders folders{.count = unreadKnown.size(), .first = {}};
    for (const auto &[path, error] : unreadFirst)
        folders.first.append({.path = path, .reason = qt_error_string(error)});
    return folders;
}

} // namespace tidlo
