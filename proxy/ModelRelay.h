#pragma once

#include "proxy/Answer.h"
#include "proxy/Asio.h"
#include "proxy/Settings.h"

#include <memory>

#include <openssl/ssl.h>

namespace tidlo::proxy {

/// Asks a model on behalf of clients. It holds no thread while the model thinks.
class ModelRelay final
{
public:
    /// Encodes and decodes on \a pool, which must outlive it. The model's server is verified by what \a tls trusts.
    ModelRelay(asio::thread_pool *pool, Upstream upstream, std::shared_ptr<SSL_CTX> tls,
               std::chrono::milliseconds timeLimit = std::chrono::seconds(50));

    /// Asks what the client's \a body asks, within the time limit, and gives the texts of the model's answer alone, or
    /// a failure: 400 when the body is no question, 504 when the time ran out, else 502.
    Task<Answer> answer(std::string body) const;

private:
    asio::thread_pool *const pool;
    const Upstream upstream;
    const std::shared_ptr<SSL_CTX> tls;
    const std::chrono::milliseconds timeLimit;
};

} // namespace tidlo::proxy
