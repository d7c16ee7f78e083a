#pragma once

#include "proxy/Settings.h"

#include <QByteArray>

#include <string>

namespace tidlo::proxy {

/// The head of a request with \a bodyBytes of body to \a upstream; it includes the key.
std::string questionHead(const Upstream &upstream, qsizetype bodyBytes);

/// The body of that request: JSON with \a prompt, and what else the dialect needs.
QByteArray questionBody(const Upstream &upstream, const QString &prompt);

/// The texts in the body of a \a reply, as the client's records; empty if there is none that a client would show.
/// Nothing else of it is kept. Any bytes are safe.
QByteArray answerIn(Dialect dialect, const QByteArray &reply);

} // namespace tidlo::proxy
