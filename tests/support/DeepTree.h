#pragma once

#include "model/FilePath.h"

#include <functional>

namespace tidlo {

/// Called with the descriptor of a folder and its level; the top is level 0.
using AtLevel = std::function<void(int folder, int level)>;

/// Makes \a levels folders named \a name inside \a top, each inside the one before, however long their path becomes. A
/// failing call of the system ends the test program.
void makeChain(const FilePath &top, const char *name, int levels, const AtLevel &atLevel = {});

/// Makes a folder in an open one.
void makeFolder(int folder, const char *name);

/// Makes a file of \a bytes in an open folder.
void makeFile(int folder, const char *name, qint64 bytes = 0);

} // namespace tidlo
