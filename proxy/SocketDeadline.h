#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

/// Ends whatever goes on over a socket when its time is up: an HTTP client's own limits begin anew with every byte.
class SocketDeadline final
{
public:
    using Clock = std::chrono::steady_clock;

    /// Waits for \a deadline on a thread of its own, as long as it lives.
    explicit SocketDeadline(Clock::time_point deadline);
    ~SocketDeadline();
    SocketDeadline(const SocketDeadline &) = delete;
    SocketDeadline &operator=(const SocketDeadline &) = delete;

    /// Holds for \a socket from now on, instead of an earlier one. From any thread; \a socket may be closed at any
    /// time.
    void watch(int socket);

private:
    void cut(const std::stop_token &stop, Clock::time_point deadline);

    std::mutex mutex;
    std::condition_variable_any stopped;
    int watched = -1;
    std::jthread thread;
};
