#pragma once

#include "proxy/BoundedStream.h"

#include <array>

/// An HTTP server in which no connection takes much time or memory: each carries one request, within limits of both,
/// and ends. 2,048 of them are served at a time. Whoever opens that many keeps all others waiting, for as long as a
/// request may take to arrive; to forbid that is for what stands in front. It can be stopped at any time, also before
/// it runs.
class GuardedServer final : public httplib::Server
{
public:
    /// \a tls may be null: then it speaks plain HTTP.
    explicit GuardedServer(std::shared_ptr<SSL_CTX> tls, const ConnectionLimits &limits = {});
    ~GuardedServer() override;
    GuardedServer(const GuardedServer &) = delete;
    GuardedServer &operator=(const GuardedServer &) = delete;

    /// Takes \a port, or any that is free for 0. Returns the port, or -1 if it is not to be had.
    int bind(const std::string &address, int port);

    /// Accepts connections until it is asked to stop, then waits for those that are under way. Returns whether that is
    /// why it returned.
    bool serve();

    /// No longer accepts anything, and ends connections on which nothing has been asked. From any thread.
    void askToStop();

private:
    bool process_and_close_socket(socket_t socket) override;

    const std::shared_ptr<SSL_CTX> tls;
    const ConnectionLimits limits;
    std::array<int, 2> stopping{}; ///< A pipe whose reading end becomes readable when it is time to stop.
    std::atomic<bool> isStopping = false;
};
