#include "proxy/ConnectionThreads.h"

#include <system_error>
#include <thread>

void ConnectionThreads::enqueue(std::function<void()> connection)
{
    {
        std::unique_lock lock(mutex);
        ended.wait(lock, [this] { return running < most; });
        ++running;
    }
    try {
        std::thread([this, connection] { serve(connection); }).detach();
    } catch (const std::system_error &) { // The system has no thread left: better late than never.
        connection();
        const std::lock_guard lock(mutex);
        --running;
    }
}

void ConnectionThreads::shutdown()
{
    std::unique_lock lock(mutex);
    ended.wait(lock, [this] { return running == 0; });
}

void ConnectionThreads::serve(const std::function<void()> &connection)
{
    connection();
    std::unique_lock lock(mutex);
    --running;
    std::notify_all_at_thread_exit(ended, std::move(lock)); // What libraries keep for the thread is gone by then.
}
