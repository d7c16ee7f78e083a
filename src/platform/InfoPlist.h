#pragma once

#include "model/FilePath.h"

#include <QHash>
#include <QString>

namespace tidlo {

/// The texts that a bundle says about itself, by their keys: what stands in the property list at \a file, an XML file.
/// Values of other kinds are left out. Empty if the file cannot be read or is none.
QHash<QString, QString> readInfoPlist(const FilePath &file);

} // namespace tidlo
