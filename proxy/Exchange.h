#pragma once

#include "proxy/Asio.h"

#include <QUrl>

#include <memory>
#include <string>

#include <openssl/ssl.h>

namespace tidlo::proxy {

/// What became of a question to a server.
struct Reply
{
    enum class Outcome {
        whole,       ///< There is a status; if it is 200, a body too.
        unreachable, ///< No server that proved its name could be reached, or it sent no reply that could be understood.
        unusable,    ///< It is too long, or packed.
        late,        ///< The time ran out.
    };
    Outcome outcome = Outcome::unreachable;
    int status = 0;
    std::string body = {};
};

/// Sends \a request, a head and a body, to \a server, and reads the reply until \a deadline: 64 KB of head and 1 MB of
/// body at most. Over HTTPS, the server is verified by what \a tls trusts; plain HTTP goes to this machine alone.
Task<Reply> exchange(QUrl server, std::shared_ptr<SSL_CTX> tls, std::string request, Clock::time_point deadline);

} // namespace tidlo::proxy
