#include "platform/Loopback.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace tidlo {

namespace {

/// Makes \a call with the loopback address and \a port, as the system takes them.
template <typename Call>
int withLoopback(int family, int port, Call call)
{
    sockaddr_in four{};
    four.sin_family = AF_INET;
    four.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    four.sin_port = htons(static_cast<in_port_t>(port));
    sockaddr_in6 six{};
    six.sin6_family = AF_INET6;
    six.sin6_addr = in6addr_loopback;
    six.sin6_port = four.sin_port;
    return errorOf([&] {
        return family == AF_INET ? call(reinterpret_cast<const sockaddr *>(&four), sizeof four)
                                 : call(reinterpret_cast<const sockaddr *>(&six), sizeof six);
    });
}

} // namespace

Descriptor listenOnLoopback()
{
    Descriptor made(socket(AF_INET, SOCK_STREAM, 0));
    if (!made.isValid())
        return made;
    Descriptor listener(fcntl(made.get(), F_DUPFD_CLOEXEC, 0));
    if (!listener.isValid())
        return listener;
    const auto bindTo = [&listener](const sockaddr *name, socklen_t size) { return bind(listener.get(), name, size); };
    if (const int error = withLoopback(AF_INET, 0, bindTo))
        return Descriptor::failed(error);
    if (const int error = errorOf([&] { return listen(listener.get(), SOMAXCONN); }))
        return Descriptor::failed(error);
    return listener;
}

int portOf(const Descriptor &listener)
{
    sockaddr_in name{};
    socklen_t size = sizeof name;
    const bool isKnown = getsockname(listener.get(), reinterpret_cast<sockaddr *>(&name), &size) == 0;
    return isKnown ? ntohs(name.sin_port) : 0;
}

bool isAnsweredOnLoopback(int port)
{
    for (const int family : {AF_INET, AF_INET6}) {
        const Descriptor made(socket(family, SOCK_STREAM, 0));
        const auto connectTo = [&made](const sockaddr *name, socklen_t size) {
            return connect(made.get(), name, size);
        };
        if (withLoopback(family, port, connectTo) == 0)
            return true;
    }
    return false;
}

} // namespace tidlo
