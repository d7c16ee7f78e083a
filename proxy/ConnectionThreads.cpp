#include "proxy/ConnectionThreads.h"

#include <iterator>
#include <system_error>

void ConnectionThreads::enqueue(std::function<void()> connection)
{
    std::unique_lock lock(mutex);
    ended.wait(lock, [this] { return running.size() < most; });
    finished.clear();
    const Thread own = running.emplace(running.end());
    try {
        *own = std::jthread([this, own, connection] {
            connection();
            finish(own);
        });
    } catch (const std::system_error &) { // The system has no thread left: better late than never.
        running.erase(own);
        lock.unlock();
        connection();
    }
}

void ConnectionThreads::shutdown()
{
    std::unique_lock lock(mutex);
    ended.wait(lock, [this] { return running.empty(); });
    finished.clear();
}

void ConnectionThreads::finish(Thread own)
{
    const std::lock_guard lock(mutex);
    finished.splice(finished.end(), running, own);
    ended.notify_all();
}
