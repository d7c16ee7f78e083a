#pragma once

#include "proxy/Asio.h"

#include <QUrl>

#include <memory>
#include <string>

#include <openssl/ssl.h>

namespace tidlo::proxy {

/// The result of a request to a server.
struct Reply
{
    enum class Outcome {
        whole,       ///< There is a status; if it is 200, a body too.
        unreachable, ///< No server that proved its name could be reached, or it sent no valid reply.
        unusable,    ///< The reply is too long, or compressed.
        late,        ///< The time ran out.
    };
    Outcome outcome = Outcome::unreachable;
    int status = 0;
    std::string body = {};
};

/// Sends \a request, a head and a body, to \a server, and reads the reply until \a deadline: 64 KB of head and 1 MB of
/// body at most. Over HTTPS, the server is verified with the authorities of \a tls; plain HTTP is only for this
/// machine.
Task<Reply> exchange(QUrl server, std::shared_ptr<SSL_CTX> tls, std::string request, Clock::time_point deadline);

} // namespace tidlo::proxy
