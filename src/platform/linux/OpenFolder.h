#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"
#include "platform/OrError.h"
#include "platform/Trash.h"
#include "platform/linux/SystemCalls.h"

#include <QList>

#include <optional>

namespace tidlo {

/// What is found under a name, compared with something that is held open.
enum class Identity {
    same,
    different, ///< Something else has the name.
    absent,    ///< Nothing has it.
};

/// What \a status tells.
ItemIdentity identityIn(const struct statx &status);

/// What the open \a descriptor holds. An error if the system does not tell.
OrError<ItemIdentity> identityOf(const SystemCalls &calls, int descriptor);

/// Whether what is called \a name in \a folder, a link not followed, is the very thing that \a held holds open. As long
/// as it is held, nothing else can have its number. An error if the system does not tell.
OrError<Identity> identityAt(const SystemCalls &calls, int held, int folder, const char *name);

/// A folder that is held open, so that it stays the same one whatever becomes of its path.
struct OpenFolder
{
    Descriptor descriptor; ///< For the *at() calls only (O_PATH).
    FilePath path;         ///< Where it truly is: absolute, without links.
    quint64 mount = 0;     ///< The number of the mount it is on.
};

/// Opens the folder at \a path, links followed, however long the path is; beyond PATH_MAX bytes, though, no link is
/// followed any more. The error is ENOENT or ENOTDIR only if no such folder exists.
OrError<OpenFolder> openFolder(const SystemCalls &calls, const FilePath &path);

/// A folder that need not exist yet.
struct PlannedFolder
{
    OpenFolder nearest;      ///< Itself, or the nearest folder above it that exists.
    QList<FilePath> missing; ///< The names from there on, outermost first.

    /// Where it is or will be, as far as that is known.
    FilePath path() const;
};

/// Finds where the absolute \a path leads, as far as it exists.
OrError<PlannedFolder> planFolder(const SystemCalls &calls, FilePath path);

/// The number of the mount that an open file or folder is on.
OrError<quint64> mountOf(const SystemCalls &calls, int descriptor);

/// All that a file holds, such as one of /proc.
OrError<QByteArray> readSystemFile(const SystemCalls &calls, const QByteArray &path);

} // namespace tidlo
