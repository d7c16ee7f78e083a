#pragma once

#include "proxy/Answer.h"
#include "proxy/Settings.h"

#include <chrono>

/// Asks the model that \a upstream names what \a prompt asks, within \a timeLimit, and gives the texts of its answer
/// alone, or a failure: 504 when the time ran out, else 502. Looking up the server's name counts, but is not cut short.
/// The server is verified against the system's certificate authorities, or those in SSL_CERT_FILE. Blocks the thread.
Answer relay(const QString &prompt, const Upstream &upstream,
             std::chrono::milliseconds timeLimit = std::chrono::seconds(50));
