#include "proxy/GuardedServer.h"

#include "proxy/ConnectionThreads.h"

#include <algorithm>
#include <cstdlib>
#include <exception>

#include <openssl/err.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int mostConnections = 2'048;

size_t lengthOf(const httplib::Request &request)
{
    return request.get_header_value<uint64_t>("Content-Length");
}

// The library would share a port with whoever has it already.
void takeAlone(socket_t socket)
{
    const int yes = 1; // Connections of an earlier run may still linger.
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

} // namespace

GuardedServer::GuardedServer(std::shared_ptr<SSL_CTX> tlsContext, const ConnectionLimits &connectionLimits)
    : tls(std::move(tlsContext))
    , limits(connectionLimits)
{
    if (::pipe(stopping.data()) != 0)
        std::abort();
    set_socket_options(takeAlone);
    new_task_queue = [] { return new ConnectionThreads(mostConnections); };
}

GuardedServer::~GuardedServer()
{
    for (const int end : stopping)
        ::close(end);
}

int GuardedServer::bind(const std::string &address, int port)
{
    const int bound = port == 0 ? bind_to_any_port(address) : (bind_to_port(address, port) ? port : -1);
    if (bound != -1)
        ::listen(svr_sock_, mostConnections); // Instead of the library's five.
    return bound;
}

bool GuardedServer::serve()
{
    listen_after_bind();
    return isStopping;
}

void GuardedServer::askToStop()
{
    isStopping = true;
    ::shutdown(svr_sock_, SHUT_RDWR); // Whoever accepts fails, now or when it comes to that.
    const ssize_t written = ::write(stopping[1], "", 1);
    static_cast<void>(written); // One byte always fits.
}

bool GuardedServer::process_and_close_socket(socket_t socket)
{
    ERR_clear_error();
    BoundedStream stream(socket, tls.get(), limits, stopping[0]);
    if (!stream.hasRequest())
        return false;
    constexpr bool isLast = true;
    bool isClosed = false;
    bool succeeded = false;
    size_t end = 0; // Of the request, as far as that is known.
    const auto prepare = [&](httplib::Request &request) {
        request.ranges.clear(); // They are of no use here, and many of them would make an answer long.
        end = stream.consumed() + lengthOf(request);
        stream.headIsRead();
    };
    try {
        succeeded = process_request(stream, isLast, isClosed, prepare);
    } catch (const std::exception &) { // The library throws for some lines that nobody sends in earnest.
        return false;
    }
    stream.finish(end - std::min(end, stream.consumed()));
    return succeeded;
}
