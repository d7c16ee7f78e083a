#pragma once

#include "proxy/Settings.h"

#include <QByteArray>

#include <string>

namespace tidlo::proxy {

/// The lines in front of a question of \a bodyBytes to \a upstream, the key among them.
std::string questionHead(const Upstream &upstream, qsizetype bodyBytes);

/// The question itself: JSON that holds \a prompt, and what else the dialect needs.
QByteArray questionBody(const Upstream &upstream, const QString &prompt);

/// The texts in the body of a \a reply, as the client's records; empty if there is none that a client would show.
/// Nothing else of it is kept. Any bytes are safe.
QByteArray answerIn(Dialect dialect, const QByteArray &reply);

} // namespace tidlo::proxy
