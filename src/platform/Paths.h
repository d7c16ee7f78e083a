#pragma once

#include "model/FilePath.h"

#include <QByteArrayView>

namespace tidlo {

/// \a folder and \a name joined by a slash, without a second slash if the folder is "/".
FilePath joined(const FilePath &folder, const FilePath &name);

/// A folder for programs' files about the user: \a configured, the value of an environment variable, if that is
/// absolute; otherwise the \a usual one, which is relative to the \a home folder.
FilePath folderInHome(const FilePath &home, const char *usual, const FilePath &configured);

/// The last component of a path.
QByteArrayView lastPathComponent(const FilePath &path);

/// What follows the last dot of a name; empty when the name has no dot, or none but a leading one.
QByteArrayView fileExtension(QByteArrayView name);

/// Whether listings leave the name out: it begins with a dot.
bool isHiddenName(QByteArrayView name);

/// Whether a folder of this name is a package, which people see as one file: decided by its extension, ignoring case.
bool isPackageName(QByteArrayView name);

/// Whether \a path is \a folder or lies beneath it, decided by their names alone. Both absolute, without links, doubled
/// or trailing slashes.
bool isAtOrBelow(const FilePath &path, const FilePath &folder);

/// Whether the item at \a path is \a container or lies beneath it, whatever links and spellings lead there: real places
/// are compared, not names. A link at the end of a path is followed. A folder of the container that is mounted a second
/// time counts as being where it is reached. False if there is no container. Otherwise true if the system reports an
/// error, so that nothing forbidden is done.
bool isSameOrWithin(const FilePath &path, const FilePath &container);

} // namespace tidlo
