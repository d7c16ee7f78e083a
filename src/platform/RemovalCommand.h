#pragma once

#include "model/FilePath.h"

#include <QString>

namespace tidlo {

/// The command that removes the package with which the program at \a executable was installed: the first line of the
/// file share/tidlo/uninstall-command beside its folder, 200 bytes at most. Empty if there is no such regular file, or
/// its content is invalid.
QString removalCommandBeside(const FilePath &executable);

} // namespace tidlo
