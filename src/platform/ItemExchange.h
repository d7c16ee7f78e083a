#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// Lets the items at two paths of one file system change places, of whatever kind they are, at one moment: at no time
/// is there nothing at either. Gives 0, or the errno of what went wrong; see isExchangeUnknown().
int exchangeItems(const FilePath &one, const FilePath &other);

/// Whether an \a error of exchangeItems tells that the system or the file system cannot do that at all.
bool isExchangeUnknown(int error);

} // namespace tidlo
