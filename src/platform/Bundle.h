#pragma once

#include "model/FilePath.h"

#include <QHash>
#include <QString>

#include <optional>

namespace tidlo {

/// The application's reverse-DNS identifier, used in the names of its bundle, desktop entry, preferences and cache.
inline constexpr const char *applicationIdentifier = "com.tidlo.storagecleaner";

/// The texts in the property list at \a file, an XML file, by their keys. Values of other types are left out. Empty if
/// the file cannot be read or is no property list.
QHash<QString, QString> readInfoPlist(const FilePath &file);

/// An application on the disk: a folder whose name ends in ".app" and that holds everything it needs, or a bare
/// executable outside of any such folder.
struct Bundle
{
    FilePath path;
    FilePath executable;                  ///< The executable of the running program, or the one that the bundle names.
    std::optional<QByteArray> identifier; ///< Absent when the bundle names none.

    /// Whether it is such a folder with its executable in the right place. A program somewhere else below such a folder
    /// does not count.
    bool isApplication() const;

    /// Whether it is such a folder and this application's own: its identifier is ours, or absent.
    bool isOurs() const;

    bool operator==(const Bundle &) const = default;
};

/// The bundle of \a executable: the nearest folder above it whose name ends in ".app". Reads the file system.
Bundle bundleOf(const FilePath &executable);

/// The bundle at \a path, with the executable that it names; if it names none, \a path counts as the executable.
Bundle bundleAt(const FilePath &path);

/// The bundle of the running program.
Bundle mainBundle();

} // namespace tidlo
