#include "platform/QuitLimit.h"

#include <csignal>
#include <utility>
#include <vector>

#include <sys/time.h>
#include <unistd.h>

namespace tidlo {

namespace {

volatile std::sig_atomic_t statusAtLimit = 0;

void endNow(int)
{
    _exit(statusAtLimit);
}

/// A timer that is set to zero is off.
void setTimer(std::chrono::milliseconds limit)
{
    using namespace std::chrono;
    const auto whole = duration_cast<seconds>(limit);
    itimerval timer = {};
    timer.it_value.tv_sec = static_cast<time_t>(whole.count());
    timer.it_value.tv_usec = static_cast<suseconds_t>(microseconds(limit - whole).count());
    setitimer(ITIMER_REAL, &timer, nullptr);
}

/// Threads that are joined when the program ends.
class LeftThreads final
{
public:
    ~LeftThreads() { join(); }

    void add(std::thread thread) { threads.push_back(std::move(thread)); }

    void join()
    {
        for (std::thread &thread : std::exchange(threads, {}))
            thread.join();
    }

private:
    std::vector<std::thread> threads;
};

LeftThreads &leftThreads()
{
    static LeftThreads threads;
    return threads;
}

} // namespace

void leaveToSystem(std::thread thread)
{
    leftThreads().add(std::move(thread));
}

QuitLimit::~QuitLimit()
{
    leftThreads().join();
    setTimer(std::chrono::milliseconds::zero());
}

void QuitLimit::begin(std::chrono::milliseconds limit, int status)
{
    statusAtLimit = status;
    struct sigaction action = {};
    action.sa_handler = endNow;
    sigaction(SIGALRM, &action, nullptr);
    setTimer(limit);
}

} // namespace tidlo
