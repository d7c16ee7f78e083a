#pragma once

#include "model/FilePath.h"

#include <QByteArrayList>
#include <QString>

#include <optional>

namespace tidlo {

/// Where the running program's executable lies, links followed; empty if the system does not tell.
FilePath executablePath();

/// Lets the calling thread stand back behind those that a person waits for, such as the one that draws, where there is
/// not room for all. It stays so, and asking again changes nothing. Where the system passes this on to threads that it
/// starts, they stand back as well. If the system refuses, nothing changes.
void standBack();

/// Starts the program at the path \a program in a session of its own, so that it outlives this one, with nothing to
/// read, and what it writes is thrown away; it is not waited for. Gives the system's words for why it could not be
/// started, or nothing.
std::optional<QString> startDetached(const FilePath &program, const QByteArrayList &arguments);

} // namespace tidlo
