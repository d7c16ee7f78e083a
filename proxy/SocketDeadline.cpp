#include "proxy/SocketDeadline.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

SocketDeadline::SocketDeadline(Clock::time_point deadline)
    : thread([this, deadline](const std::stop_token &stop) { cut(stop, deadline); })
{}

SocketDeadline::~SocketDeadline()
{
    thread.request_stop();
    thread.join();
    ::close(watched);
}

void SocketDeadline::watch(int socket)
{
    const std::lock_guard lock(mutex);
    ::close(watched);
    watched = ::fcntl(socket, F_DUPFD_CLOEXEC, 0); // The number of one that was closed may be another's by then.
}

void SocketDeadline::cut(const std::stop_token &stop, Clock::time_point deadline)
{
    constexpr std::chrono::milliseconds untilAgain(100);
    const auto never = [] { return false; };
    std::unique_lock lock(mutex);
    stopped.wait_until(lock, stop, deadline, never);
    while (!stop.stop_requested()) {
        ::shutdown(watched, SHUT_RDWR);
        stopped.wait_for(lock, stop, untilAgain, never); // The client may try another address yet.
    }
}
