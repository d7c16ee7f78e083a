#pragma once

#include <chrono>
#include <thread>

namespace tidlo {

/// Limits how long the end of the program may take, since a file system or an unanswered request to the system could
/// block it. One at a time; it starts no thread. While it exists, the process must not use SIGALRM or the real-time
/// interval timer for anything else.
class QuitLimit final
{
public:
    QuitLimit() = default;
    /// Joins the threads that were left to the system. If this returns, everything has ended in time.
    ~QuitLimit();
    QuitLimit(const QuitLimit &) = delete;
    QuitLimit &operator=(const QuitLimit &) = delete;

    /// Starts the limit: if this object still exists after \a limit, the process ends with \a status at once, whatever
    /// its threads are doing.
    void begin(std::chrono::milliseconds limit, int status);
};

/// How long quitting may take. Work that the system blocks for longer is abandoned: at every moment, an item is
/// complete at its place or in the Trash.
inline constexpr std::chrono::milliseconds quitLimit(700);

/// Takes over a thread that nobody waits for any more, since the system may block it for long. The end of the program
/// joins it, since what the thread uses must not be destroyed while it runs. Main thread.
void leaveToSystem(std::thread thread);

} // namespace tidlo
