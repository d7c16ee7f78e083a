#pragma once

#include "model/FilePath.h"

#include <QByteArrayView>

namespace tidlo {

/// \a folder and \a name as one path, with no slash too many where the folder is "/".
FilePath joined(const FilePath &folder, const FilePath &name);

/// The last component of a path.
QByteArrayView lastPathComponent(const FilePath &path);

/// What follows the last dot of a name; empty when the name has no dot, or none but a leading one.
QByteArrayView fileExtension(QByteArrayView name);

/// Whether listings leave the name out: it begins with a dot.
bool isHiddenName(QByteArrayView name);

/// Whether a folder of this name is a package, which looks like one file to people: by its extension, without case.
bool isPackageName(QByteArrayView name);

} // namespace tidlo
