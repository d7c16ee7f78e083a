#include "platform/QuitLimit.h"

#include <csignal>

#include <sys/time.h>
#include <unistd.h>

namespace tidlo {

namespace {

volatile std::sig_atomic_t statusAtLimit = 0;

void endNow(int)
{
    _exit(statusAtLimit);
}

/// After no time at all, the timer never rings.
void setTimer(std::chrono::milliseconds limit)
{
    using namespace std::chrono;
    const auto whole = duration_cast<seconds>(limit);
    itimerval timer = {};
    timer.it_value.tv_sec = static_cast<time_t>(whole.count());
    timer.it_value.tv_usec = static_cast<suseconds_t>(microseconds(limit - whole).count());
    setitimer(ITIMER_REAL, &timer, nullptr);
}

} // namespace

QuitLimit::~QuitLimit()
{
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
