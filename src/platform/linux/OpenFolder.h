#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"
#include "platform/linux/SystemCalls.h"

#include <QList>

#include <optional>

namespace tidlo {

/// A folder that is held open, so that it stays the same one whatever becomes of its path.
struct OpenFolder
{
    Descriptor descriptor; ///< For the *at() calls only (O_PATH).
    FilePath path;         ///< Where it truly is: absolute, without links.
    quint64 mount = 0;     ///< The number of the mount it is on.
};

/// Opens the folder at \a path, links followed, however long the path is; beyond PATH_MAX bytes, though, no link is
/// followed any more. Nothing on failure, and errno tells why: ENOENT and ENOTDIR only if no such folder exists.
std::optional<OpenFolder> openFolder(const SystemCalls &calls, const FilePath &path);

/// A folder that need not exist yet.
struct PlannedFolder
{
    OpenFolder nearest;      ///< Itself, or the nearest folder above it that exists.
    QList<FilePath> missing; ///< The names from there on, outermost first.

    /// Where it is or will be, as truly as it is known.
    FilePath path() const;
};

/// Finds where the absolute \a path leads, as far as it exists. Nothing on failure, and errno tells why.
std::optional<PlannedFolder> planFolder(const SystemCalls &calls, FilePath path);

/// The number of the mount that an open file or folder is on; nothing on failure, and errno tells why.
std::optional<quint64> mountOf(const SystemCalls &calls, int descriptor);

/// All that a file of /proc holds; nothing on failure, and errno tells why.
std::optional<QByteArray> readSystemFile(const SystemCalls &calls, const QByteArray &path);

} // namespace tidlo
