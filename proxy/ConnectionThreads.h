#pragma once

#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

#include <httplib.h>

/// A thread for each connection, as long as it lasts. Connections spend their time waiting, for a client or for the
/// model, so that a pool of few threads could be kept busy by a few that do nothing.
class ConnectionThreads final : public httplib::TaskQueue
{
public:
    /// Serves \a most connections at a time; more wait to be accepted.
    explicit ConnectionThreads(size_t most)
        : most(most)
    {}

    void enqueue(std::function<void()> connection) override;
    /// Waits for the end of all connections.
    void shutdown() override;

private:
    using Thread = std::list<std::jthread>::iterator;

    void finish(Thread own);

    const size_t most;
    std::mutex mutex;
    std::condition_variable ended;
    std::list<std::jthread> running;
    std::list<std::jthread> finished; ///< To be joined, which takes no time.
};
