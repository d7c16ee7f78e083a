#pragma once

#include "ai/HttpsExchange.h"

/// Sends \a request, a POST, and gives the final reply. Redirects are followed to the same origin alone, within the
/// same deadline; any other is the final reply, and its target is told nothing. Servers are reached through the
/// system's proxies and verified as TrustedCertificates.h says. Asking the system for its proxies counts, but is not
/// cut short: a system that looks for one in the network may take longer than the deadline allows. Called on the main
/// thread, which it does not block.
QCoro::Task<HttpsReply> httpsPost(HttpsRequest request);
