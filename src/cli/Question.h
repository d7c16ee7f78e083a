#pragma once

#include <QString>

namespace tidlo {

/// Whether a person can be asked: standard input and standard error are terminals.
bool canAsk();

/// Asks on standard error and waits for a line. True only for "y" or "yes"; what was typed before the question was
/// shown does not count.
bool agreesTo(const QString &question);

} // namespace tidlo
