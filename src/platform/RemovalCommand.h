#pragma once

#include "model/FilePath.h"

#include <QString>

namespace tidlo {

/// The command that removes the package which the program at \a executable was installed by: the first line of the
/// file share/tidlo/uninstall-command beside its folder, 200 bytes at most. Empty if there is no such regular file, or
/// it holds anything else.
QString removalCommandBeside(const FilePath &executable);

} // namespace tidlo
