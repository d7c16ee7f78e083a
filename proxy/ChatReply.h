#pragma once

#include <QByteArray>
#include <QString>

namespace tidlo::proxy {

/// The text of the first choice in a chat completion; empty if it has none, or is none. Any bytes are safe, however
/// deep: nothing else of them is kept.
QString textOfFirstChoice(const QByteArray &json);

} // namespace tidlo::proxy
