#pragma once

#include <QByteArray>

namespace tidlo {

/// An absolute path as the file system's own bytes. It is decoded only for display, so that a file of any name can be
/// found again and moved: a name that is not valid UTF-8 would not survive conversion to text and back.
using FilePath = QByteArray;

} // namespace tidlo
