#pragma once

#include "model/FilePath.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace tidlo {

/// A folder in which waiting for the disk takes no time, where the system has one: for tests of very many moves.
inline FilePath fastDisk()
{
    const FilePath memory = "/dev/shm";
    return access(memory.constData(), W_OK) == 0 ? memory : QFile::encodeName(QDir::tempPath());
}

} // namespace tidlo
