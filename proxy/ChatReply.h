#pragma once

#include <QByteArray>
#include <QString>

namespace tidlo::proxy {

/// The text of the first choice in a chat completion; empty if \a json has none, or is no chat completion. Any bytes
/// are safe, however deeply nested: nothing else in them is stored.
QString textOfFirstChoice(const QByteArray &json);

} // namespace tidlo::proxy
