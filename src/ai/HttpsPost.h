#pragma once

#include "ai/HttpsExchange.h"

namespace tidlo {

/// Sends \a request, a POST, by \a exchange and gives the final reply. Redirects are followed to the same origin alone;
/// any other is the final reply, and its target is told nothing. Servers are reached through the system's proxies and
/// verified as TrustedCertificates.h says. What cannot be stopped is asking the system for its proxies: one that looks
/// for them in the network may take its time. For a thread that may wait.
HttpsReply httpsPost(HttpsRequest request, HttpsExchange &exchange);

} // namespace tidlo
