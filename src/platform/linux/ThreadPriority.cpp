#include "platform/ThreadPriority.h"

#include <sys/resource.h>
#include <unistd.h>

void standBack()
{
    // Half of the way to the least: a tenth of the share that others have who want a processor at the same time.
    constexpr int niceness = 10;
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), niceness); // On Linux that is of one thread.
}
