#pragma once

#include "ai/HttpsExchange.h"

namespace tidlo {

/// Sends \a request, a POST, by \a exchange and gives the final reply. Redirects are followed to the same origin alone;
/// any other is the final reply, and its target is told nothing. Servers are reached through the system's proxies and
/// verified as TrustedCertificates.h says. Asking the system for its proxies cannot be stopped: a system that looks for
/// them in the network may take long. For a thread that may wait.
HttpsReply httpsPost(HttpsRequest request, HttpsExchange &exchange);

} // namespace tidlo
