#include "proxy/ExplainServer.h"

#include <cstdio>

namespace tidlo::proxy {

ExplainServer::ExplainServer(tcp::acceptor listening, std::shared_ptr<SSL_CTX> tls, Explain explain,
                             const Limits &limits)
    : service{.explain = std::move(explain), .tls = std::move(tls), .limits = limits}
    , acceptor(std::move(listening))
    , places(limits.connections, limits.connectionsOfAddress, [this] { placeWasLeft(); })
    , placeLeft(acceptor.get_executor(), Clock::time_point::max())
    , idle(acceptor.get_executor(), Clock::time_point::max())
{
    asio::co_spawn(acceptor.get_executor(), accept(), asio::detached);
    if (limits.idle.count() > 0)
        asio::co_spawn(acceptor.get_executor(), stopWhenIdle(), asio::detached);
}

void ExplainServer::stop()
{
    if (service.isStopping)
        return;
    service.isStopping = true;
    for (Stream *stream : service.silent)
        stream->within(service.limits.toBegin);
    error_code error;
    acceptor.non_blocking(true, error);
    while (!error && !places.isFull()) {
        tcp::socket socket(acceptor.get_executor());
        acceptor.accept(socket, error);
        if (!error)
            begin(std::move(socket));
    }
    acceptor.close(error);
    placeLeft.cancel();
    idle.cancel();
}

Task<void> ExplainServer::accept()
{
    while (!service.isStopping) {
        if (places.isFull()) {
            co_await placeLeft.async_wait(asTuple());
            continue;
        }
        auto [error, socket] = co_await acceptor.async_accept(asTuple());
        if (!error) {
            begin(std::move(socket));
        } else if (!service.isStopping) { // No descriptor or no memory is left: try again later.
            asio::steady_timer pause(acceptor.get_executor(), std::chrono::milliseconds(100));
            co_await pause.async_wait(asTuple());
        }
    }
}

Task<void> ExplainServer::stopWhenIdle()
{
    while (!service.isStopping) {
        if (places.isEmpty())
            idle.expires_after(service.limits.idle);
        else
            idle.expires_at(Clock::time_point::max());
        const auto [error] = co_await idle.async_wait(asTuple());
        if (!error && places.isEmpty())
            stop();
    }
}

void ExplainServer::begin(tcp::socket socket)
{
    error_code error;
    const auto address = socket.remote_endpoint(error).address();
    if (error)
        return; // The client has gone already.
    Places::Place place = places.take(address);
    if (!place) {
        std::fputs("connection refused too_many\n", stderr);
        return;
    }
    idle.cancel();
    auto connection = std::make_unique<Connection>(&service, std::move(socket), std::move(place));
    asio::co_spawn(acceptor.get_executor(), Connection::run(std::move(connection)), asio::detached);
}

void ExplainServer::placeWasLeft()
{
    placeLeft.cancel();
    if (places.isEmpty())
        idle.cancel();
}

} // namespace tidlo::proxy
