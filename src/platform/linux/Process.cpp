#include "platform/Process.h"

#include <algorithm>
#include <filesystem>

#include <sys/resource.h>
#include <unistd.h>

namespace tidlo {

namespace {

bool stepBack()
{
    // Half of the way to the lowest priority: a tenth of the processor time of other threads that need it at the same
    // time.
    constexpr int steps = 10;
    constexpr int most = 19;
    const auto thread = static_cast<id_t>(gettid()); // On Linux each thread has its own niceness.
    setpriority(PRIO_PROCESS, thread, std::min(getpriority(PRIO_PROCESS, thread) + steps, most));
    return true;
}

} // namespace

FilePath executablePath()
{
    std::error_code error;
    return FilePath::fromStdString(std::filesystem::read_symlink("/proc/self/exe", error).native());
}

void standBack()
{
    thread_local const bool isDone = stepBack(); // Relative to the niceness at its start, and so only once.
    static_cast<void>(isDone);
}

} // namespace tidlo
