#pragma once

#include "proxy/BodyBudget.h"
#include "proxy/Limits.h"
#include "proxy/Places.h"
#include "proxy/RateLimiter.h"
#include "proxy/RequestReader.h"
#include "proxy/Stream.h"

#include <functional>
#include <set>

namespace tidlo::proxy {

/// Answers the question in a body. Called on the loop, for many questions at a time; long work must not run there. May
/// throw.
using Explain = std::function<Task<Answer>(std::string body)>;

/// The part that all connections share.
struct Service
{
    const Explain explain;
    const std::shared_ptr<SSL_CTX> tls; ///< Null for plain HTTP.
    const Limits limits;
    RateLimiter limiter{limits.perMinute};
    BodyBudget bodies{limits.allBodiesBytes};
    std::set<Stream *> silent = {}; ///< Connections whose client has sent nothing yet.
    bool isStopping = false;
};

/// One connection: it carries one request, and ends. A client asks once after a scan, so keeping connections would save
/// nothing, and a refused body can never be taken for the next request.
class Connection final
{
public:
    /// \a shared must outlive it; \a taken is held until it ends.
    Connection(Service *shared, tcp::socket socket, Places::Place taken);
    ~Connection() { service.silent.erase(&stream); }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Runs from the first byte to the end of TLS. Logs to standard error which address was requested and the result;
    /// never who asked, or what.
    static Task<void> run(std::unique_ptr<Connection> connection);

private:
    /// Each returns the answer if it is known already.
    Task<std::optional<Answer>> answer();
    Task<std::optional<Answer>> readHead();
    Task<std::optional<Answer>> readBody();

    Task<void> send(Answer answer);
    Task<void> finish();
    Task<bool> readMore();
    error_code parse();
    uint64_t unsent() const;

    const Places::Place place;
    Service &service;
    const Limits &limits;
    Stream stream;
    BodyBudget::Share share;
    RequestParser parser;
    std::string pending; ///< Bytes that were not parsed yet.
    size_t received = 0; ///< Number of bytes received of the request.
};

} // namespace tidlo::proxy
