#pragma once

#include "proxy/Connection.h"

namespace tidlo::proxy {

/// The service: POST /explain and GET /healthz, for many connections, on the one thread that runs the loop.
class ExplainServer final
{
public:
    /// Accepts connections on \a listening while its loop runs, and must live as long as the loop. Without \a tls it
    /// speaks plain HTTP.
    ExplainServer(tcp::acceptor listening, std::shared_ptr<SSL_CTX> tls, Explain explain, const Limits &limits = {});

    /// Accepts only the connections that wait already, lets their clients ask, and answers the requests under way. Call
    /// it on the loop's thread.
    void stop();
    /// Whether it has stopped, and every connection has ended.
    bool hasEnded() const { return service.isStopping && places.isEmpty(); }

private:
    Task<void> accept();
    Task<void> stopWhenIdle();
    void begin(tcp::socket socket);
    void placeWasLeft();

    Service service;
    tcp::acceptor acceptor;
    Places places;
    asio::steady_timer placeLeft; ///< Wakes the accepting coroutine when a place is free.
    asio::steady_timer idle;      ///< Runs while there is no connection.
};

} // namespace tidlo::proxy
