#include "proxy/Listener.h"

#include <fcntl.h>
#include <sys/socket.h>

namespace tidlo::proxy {
namespace {

using MaybeAcceptor = std::optional<tcp::acceptor>;

constexpr int mostWaiting = 2'048;

MaybeAcceptor listenOn(const Settings &settings, asio::io_context &loop)
{
    error_code error;
    const auto address = asio::ip::make_address(settings.address.toStdString(), error);
    const tcp::endpoint where(address, static_cast<unsigned short>(settings.port));
    tcp::acceptor acceptor(loop);
    if (!error)
        acceptor.open(where.protocol(), error);
    if (!error)
        acceptor.set_option(tcp::acceptor::reuse_address(true), error); // Old connections may be in TIME_WAIT.
    if (!error)
        acceptor.bind(where, error);
    if (!error)
        acceptor.listen(mostWaiting, error);
    return error ? MaybeAcceptor() : MaybeAcceptor(std::move(acceptor));
}

int option(int socket, int name)
{
    int value = 0;
    socklen_t size = sizeof value;
    return ::getsockopt(socket, SOL_SOCKET, name, &value, &size) == 0 ? value : -1;
}

MaybeAcceptor handedOver(int socket, asio::io_context &loop)
{
    sockaddr_storage name{};
    socklen_t size = sizeof name;
    if (option(socket, SO_ACCEPTCONN) != 1 || option(socket, SO_TYPE) != SOCK_STREAM ||
        ::getsockname(socket, reinterpret_cast<sockaddr *>(&name), &size) != 0 ||
        (name.ss_family != AF_INET && name.ss_family != AF_INET6))
        return std::nullopt;
    ::fcntl(socket, F_SETFD, FD_CLOEXEC);
    tcp::acceptor acceptor(loop);
    error_code error;
    acceptor.assign(name.ss_family == AF_INET ? tcp::v4() : tcp::v6(), socket, error);
    return error ? MaybeAcceptor() : MaybeAcceptor(std::move(acceptor));
}

} // namespace

OrReason<MaybeAcceptor> listenAs(const Settings &settings, asio::io_context &loop)
{
    constexpr int firstHandedOver = 3;
    if (!settings.isHandedOver) {
        if (MaybeAcceptor acceptor = listenOn(settings, loop))
            return {.value = std::move(acceptor), .reason = {}};
        const auto reason = QStringLiteral("Cannot listen on port %1 of %2.");
        return {.value = {}, .reason = reason.arg(settings.port).arg(settings.address)};
    }
    MaybeAcceptor acceptor = handedOver(firstHandedOver, loop);
    if (!acceptor)
        return {.value = {},
                .reason = QStringLiteral("The socket that was handed over is not a listening TCP socket.")};
    if (settings.isPlain && !acceptor->local_endpoint().address().is_loopback())
        return {.value = {}, .reason = plainIsForLoopback};
    return {.value = std::move(acceptor), .reason = {}};
}

} // namespace tidlo::proxy
