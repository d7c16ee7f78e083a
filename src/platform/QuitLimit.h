#pragma once

#include <chrono>

/// Ends the process with \a status after \a limit, wherever its threads are by then: for a quit that a file system, or
/// a question of the system's that nobody answers, would hold up. A process that ends earlier ends as usual. To be
/// called once, on any thread; it starts none. The process must not use SIGALRM or the real-time interval timer for
/// anything else.
void endAfter(std::chrono::milliseconds limit, int status);
