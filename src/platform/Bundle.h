#pragma once

#include "model/FilePath.h"

#include <QHash>
#include <QString>

#include <optional>

namespace tidlo {

/// The application's reverse-DNS identifier: its bundle, its desktop entry, its preferences and its cache are named by
/// it.
inline constexpr const char *applicationIdentifier = "com.tidlo.storagecleaner";

/// The texts that a bundle says about itself, by their keys: what stands in the property list at \a file, an XML file.
/// Values of other kinds are left out. Empty if the file cannot be read or is none.
QHash<QString, QString> readInfoPlist(const FilePath &file);

/// An application as it lies on the disk: a folder that ends in ".app" and holds all it needs, or a lone executable
/// outside any such folder, which stands for itself.
struct Bundle
{
    FilePath path;
    FilePath executable;                  ///< Of the running program, or the one that the bundle names.
    std::optional<QByteArray> identifier; ///< Absent when the bundle names none.

    /// Whether it is a folder of that kind with its executable in the place for it. A program that merely lies
    /// somewhere below such a folder does not count.
    bool isApplication() const;

    /// Whether it is such a folder and this application's own: it names our identifier, or none.
    bool isOurs() const;

    bool operator==(const Bundle &) const = default;
};

/// The bundle that \a executable lies in: the nearest folder above it that ends in ".app". Reads the file system.
Bundle bundleOf(const FilePath &executable);

/// The bundle at \a path, with the executable that it names; without one, \a path stands for itself.
Bundle bundleAt(const FilePath &path);

/// The bundle of the running program.
Bundle mainBundle();

} // namespace tidlo
