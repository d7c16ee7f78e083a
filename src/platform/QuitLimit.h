#pragma once

#include <chrono>
#include <thread>

namespace tidlo {

/// Limits how long the end of the program may take, since a file system, or a question of the system's that nobody
/// answers, could hold it up. One at a time; it starts no thread. Meanwhile the process must not use SIGALRM or the
/// real-time interval timer for anything else.
class QuitLimit final
{
public:
    QuitLimit() = default;
    /// Waits for the threads that were left to the system. Then what had to be bounded has ended in time.
    ~QuitLimit();
    QuitLimit(const QuitLimit &) = delete;
    QuitLimit &operator=(const QuitLimit &) = delete;

    /// From now on: if this still exists after \a limit, the process ends with \a status at once, wherever its threads
    /// are by then.
    void begin(std::chrono::milliseconds limit, int status);
};

/// How long a quit may take. What the system holds up for longer is left to it: at every moment an item is whole at its
/// place or in the Trash.
inline constexpr std::chrono::milliseconds quitLimit(700);

/// Takes a thread that nobody waits for any more, since the system may hold it for long. The end of the program waits
/// for it: what the thread uses must not be taken down beside it. Main thread.
void leaveToSystem(std::thread thread);

} // namespace tidlo
