#pragma once

#include "model/FilePath.h"

#include <QByteArrayView>

namespace tidlo {

/// \a folder and \a name as one path, with no slash too many where the folder is "/".
FilePath joined(const FilePath &folder, const FilePath &name);

/// A folder that programs keep something of the user in: \a configured, which is what a variable of the environment
/// says, if that is absolute, or else the \a usual one, named from the \a home on.
FilePath folderInHome(const FilePath &home, const char *usual, const FilePath &configured);

/// The last component of a path.
QByteArrayView lastPathComponent(const FilePath &path);

/// What follows the last dot of a name; empty when the name has no dot, or none but a leading one.
QByteArrayView fileExtension(QByteArrayView name);

/// Whether listings leave the name out: it begins with a dot.
bool isHiddenName(QByteArrayView name);

/// Whether a folder of this name is a package, which looks like one file to people: by its extension, without case.
bool isPackageName(QByteArrayView name);

/// Whether \a path is \a folder or lies beneath it, told by their names alone; both absolute, without links, doubled or
/// trailing slashes.
bool isAtOrBelow(const FilePath &path, const FilePath &folder);

/// Whether the item at \a path is the one at \a container or lies beneath it, whatever links and spellings lead there:
/// decided by where things are, not by their names. A link at the end of a path is followed. A folder of the container
/// that is mounted a second time lies where it is reached. False if there is no container. True wherever else the
/// system does not tell, so that nothing is done that should be forbidden.
bool isSameOrWithin(const FilePath &path, const FilePath &container);

} // namespace tidlo
