#pragma once

#include "model/FilePath.h"

#include <QByteArrayList>
#include <QString>

#include <optional>

namespace tidlo {

/// Starts the program at the path \a program in a session of its own, so that it outlives this one, with nothing to
/// read and nobody to read what it writes; it is not waited for. Gives the system's words for why it could not be
/// started, or nothing.
std::optional<QString> startDetached(const FilePath &program, const QByteArrayList &arguments);

} // namespace tidlo
