#pragma once

#include <chrono>

namespace tidlo {

/// Bounds the time that the end of the program may take: for a quit that a file system, or a question of the system's
/// that nobody answers, would hold up. One at a time; it starts no thread. Meanwhile the process must not use SIGALRM
/// or the real-time interval timer for anything else.
class QuitLimit final
{
public:
    QuitLimit() = default;
    /// What had to be bounded has ended in time.
    ~QuitLimit();
    QuitLimit(const QuitLimit &) = delete;
    QuitLimit &operator=(const QuitLimit &) = delete;

    /// From now on: if this still exists after \a limit, the process ends with \a status at once, wherever its threads
    /// are by then.
    void begin(std::chrono::milliseconds limit, int status);
};

} // namespace tidlo
