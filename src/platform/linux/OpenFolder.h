#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"
#include "platform/OrError.h"
#include "platform/Trash.h"
#include "platform/linux/SystemCalls.h"

#include <QList>

#include <optional>

namespace tidlo {

/// The item under a name, compared with one that is held open.
enum class Identity {
    same,
    different, ///< Something else has the name.
    absent,    ///< Nothing has it.
};

/// The identity in \a status.
ItemIdentity identityIn(const struct statx &status);

/// The identity of the open \a descriptor; an error if it cannot be read.
OrError<ItemIdentity> identityOf(const SystemCalls &calls, int descriptor);

/// Whether \a name in \a folder, without following a link, is the item that \a held holds open. While it is held, no
/// other item can have its number. An error if that cannot be found out.
OrError<Identity> identityAt(const SystemCalls &calls, int held, int folder, const char *name);

/// A folder that is held open, so that it stays the same whatever happens to its path.
struct OpenFolder
{
    Descriptor descriptor; ///< For the *at() calls only (O_PATH).
    FilePath path;         ///< Its real path: absolute, without links.
    quint64 mount = 0;     ///< The number of the mount it is on.
};

/// Opens the folder at \a path, links followed, however long the path is; beyond PATH_MAX bytes, though, no link is
/// followed any more. The error is ENOENT or ENOTDIR only if no such folder exists.
OrError<OpenFolder> openFolder(const SystemCalls &calls, const FilePath &path);

/// A folder that need not exist yet.
struct PlannedFolder
{
    OpenFolder nearest;      ///< The folder itself, or its nearest parent that exists.
    QList<FilePath> missing; ///< The names below that, outermost first.

    /// The path of the folder now or later, as far as it is known.
    FilePath path() const;
};

/// Finds the folder to which the absolute \a path leads, as far as it exists.
OrError<PlannedFolder> planFolder(const SystemCalls &calls, FilePath path);

/// The number of the mount that an open file or folder is on.
OrError<quint64> mountOf(const SystemCalls &calls, int descriptor);

/// The whole content of a file, such as one of /proc.
OrError<QByteArray> readSystemFile(const SystemCalls &calls, const QByteArray &path);

} // namespace tidlo
