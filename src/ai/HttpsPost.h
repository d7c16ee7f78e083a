#pragma once

#include "ai/HttpsExchange.h"

namespace tidlo {

/// Sends \a request, a POST, with \a exchange and returns the final reply. Redirects are followed only to the same
/// origin; any other redirect is the final reply, and its target gets nothing. Servers are reached through the system's
/// proxies and verified as described in TrustedCertificates.h. Asking the system for its proxies cannot be stopped, and
/// may take long if the system searches the network for them. For a thread that may block.
HttpsReply httpsPost(HttpsRequest request, HttpsExchange &exchange);

} // namespace tidlo
