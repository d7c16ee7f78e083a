#pragma once

#include <QByteArray>

#include <utility>

namespace tidlo {

/// A header of a request: its name and its value.
using HttpHeader = std::pair<QByteArray, QByteArray>;

} // namespace tidlo
