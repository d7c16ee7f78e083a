#pragma once

#include "model/FilePath.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <map>
#include <mutex>

namespace tidlo {

/// A regular file with more than one name, found under one of them. Kept small, since a home folder may hold very many.
struct LinkedFile
{
    quint64 device = 0;
    quint64 inode = 0;
    qint64 bytes = 0;  ///< On the disk.
    quint32 links = 0; ///< How many names it has, wherever they are.

    bool operator==(const LinkedFile &) const = default;
};
static_assert(sizeof(LinkedFile) <= 40);

/// A folder that exists but could not be read.
struct UnreadFolder
{
    FilePath path;
    QString reason; ///< The system's own message.

    bool operator==(const UnreadFolder &) const = default;
};

/// The folders that could not be read: their number, and the first of them in byte order of their paths.
struct UnreadFolders
{
    static constexpr size_t told = 3;

    qsizetype count = 0;
    QList<UnreadFolder> first;

    bool operator==(const UnreadFolders &) const = default;
};

/// Further findings of walks, beside their results. If several walks find the same folder or item, it is noted once.
/// Thread-safe.
class WalkNotes final
{
public:
    /// Sets the files with several links that were met in \a item, in place of those noted for it before.
    void setLinked(const FilePath &item, const QList<LinkedFile> &files);
    /// Does nothing if \a error means that the folder does not exist, or is one that no walk enters.
    void addUnread(const FilePath &folder, int error);

    QHash<FilePath, QList<LinkedFile>> linked() const;
    UnreadFolders unread() const;

private:
    mutable std::mutex mutex;
    QHash<FilePath, QList<LinkedFile>> linkedFiles; ///< Only for items that have some.
    QSet<size_t> unreadKnown;                       ///< Hashes of paths, which take little memory however many there
                                                    ///< are.
    std::map<FilePath, int> unreadFirst;
};

} // namespace tidlo
