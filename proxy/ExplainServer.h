#pragma once

#include "proxy/GuardedServer.h"
#include "proxy/RateLimiter.h"
#include "proxy/RequestReader.h"

#include <functional>
#include <mutex>

/// The service: POST /explain and GET /healthz. What it logs on standard error is which of them was asked and what
/// became of it; never who asked, or what.
class ExplainServer final
{
public:
    /// Answers one question. Called on the thread of its connection, for several questions at a time.
    using Explain = std::function<Answer(const QString &prompt)>;

    /// A server without \a tls speaks plain HTTP. A device may ask \a perMinute times in a minute, 0 for any number.
    ExplainServer(Explain explain, int perMinute, std::shared_ptr<SSL_CTX> tls, const ConnectionLimits &limits = {});

    /// As those of GuardedServer.
    int bind(const std::string &address, int port) { return server.bind(address, port); }
    bool serve() { return server.serve(); }
    void askToStop() { server.askToStop(); }

private:
    std::optional<Answer> answerBeforeBody(const httplib::Request &request);
    Answer answerToBody(const httplib::ContentReader &readBody);
    std::variant<QString, Answer> promptFrom(const httplib::ContentReader &readBody);

    const Explain explain;
    RateLimiter limiter;
    std::mutex reading; ///< Held by whoever decodes a body, which for a moment takes many times its size.
    GuardedServer server;
};
