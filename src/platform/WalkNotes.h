#pragma once

#include "model/FilePath.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <map>
#include <mutex>

namespace tidlo {

/// A regular file that more than one name leads to, by one of them. Kept small: a home may hold very many.
struct LinkedFile
{
    quint64 device = 0;
    quint64 inode = 0;
    qint64 bytes = 0;  ///< On the disk.
    quint32 links = 0; ///< How many names lead to it, wherever they are.

    bool operator==(const LinkedFile &) const = default;
};
static_assert(sizeof(LinkedFile) <= 40);

/// A folder that is there and could not be read.
struct UnreadFolder
{
    FilePath path;
    QString reason; ///< In the system's own words.

    bool operator==(const UnreadFolder &) const = default;
};

/// The folders that could not be read: how many, and the first of them in byte order of their paths.
struct UnreadFolders
{
    static constexpr size_t told = 3;

    qsizetype count = 0;
    QList<UnreadFolder> first;

    bool operator==(const UnreadFolders &) const = default;
};

/// What walks tell beside what they were asked for. Of several walks, each folder and each item is told once.
/// Thread-safe.
class WalkNotes final
{
public:
    /// The files with several links that \a item was measured with, in place of what was told of it before.
    void setLinked(const FilePath &item, const QList<LinkedFile> &files);
    /// Nothing if \a error tells that there is no such folder, or none that a walk enters.
    void addUnread(const FilePath &folder, int error);

    QHash<FilePath, QList<LinkedFile>> linked() const;
    UnreadFolders unread() const;

private:
    mutable std::mutex mutex;
    QHash<FilePath, QList<LinkedFile>> linkedFiles; ///< Of the items that have some.
    QSet<size_t> unreadKnown;                       ///< Hashes of paths: their number has no bound, their names would.
    std::map<FilePath, int> unreadFirst;
};

} // namespace tidlo
