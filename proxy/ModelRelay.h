#pragma once

#include "proxy/Answer.h"
#include "proxy/Asio.h"
#include "proxy/Settings.h"

#include <memory>

#include <openssl/ssl.h>

namespace tidlo::proxy {

/// Asks a model on behalf of clients. No thread is blocked while the model works.
class ModelRelay final
{
public:
    /// Encodes and decodes on \a pool, which must outlive it. The model's server is verified with the authorities of
    /// \a tls.
    ModelRelay(asio::thread_pool *pool, Upstream upstream, std::shared_ptr<SSL_CTX> tls,
               std::chrono::milliseconds timeLimit = std::chrono::seconds(50));

    /// Sends the question in the client's \a body to the model and returns only the texts of its answer, or a failure:
    /// 400 if the body is no question, 504 if the time limit is over, else 502.
    Task<Answer> answer(std::string body) const;

private:
    asio::thread_pool *const pool;
    const Upstream upstream;
    const std::shared_ptr<SSL_CTX> tls;
    const std::chrono::milliseconds timeLimit;
};

} // namespace tidlo::proxy
