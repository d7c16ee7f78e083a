#pragma once

#include "model/FilePath.h"

#include <QList>
#include <QUuid>

#include <optional>

namespace tidlo {

/// An identifier of this machine, only for this application, derived from the first of \a files that holds a
/// well-formed machine-id: 32 hexadecimal digits, not all zero, and at most one line feed. Nothing if none of them
/// does.
///
/// The machine-id itself is confidential and must not leave the machine, so it is only the key of a hash. Derived as
/// sd_id128_get_machine_app_specific(3) does.
std::optional<QUuid> applicationMachineId(const QList<FilePath> &files);

} // namespace tidlo
