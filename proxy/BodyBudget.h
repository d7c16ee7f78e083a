#pragma once

#include "proxy/Asio.h"

#include <list>

namespace tidlo::proxy {

/// Limits the bytes of all request bodies together, so that many requests cannot use up the memory.
class BodyBudget final
{
public:
    /// A body of up to this many bytes always gets room, as most questions do, even if somebody uses up all the rest.
    static constexpr size_t alwaysPasses = size_t{8} * 1024;

    explicit BodyBudget(size_t most)
        : most(most)
    {}

    /// The bytes that one body holds, until this object is destroyed.
    class Share final
    {
    public:
        explicit Share(BodyBudget *whole)
            : budget(whole)
        {}
        ~Share() { set(0); }
        Share(const Share &) = delete;
        Share &operator=(const Share &) = delete;

        /// Waits until there is room to hold \a bytes in all; the first to wait gets room first. Returns whether there
        /// was room before \a deadline; if not, it still holds what it held.
        Task<bool> hold(size_t bytes, Clock::time_point deadline);
        /// Gives back all bytes.
        void release() { set(0); }

    private:
        void set(size_t bytes);
        bool fits(size_t bytes) const { return budget->held + bytes - own <= budget->most; }

        BodyBudget *const budget;
        size_t own = 0;
    };

private:
    void wakeFirst();

    const size_t most;
    size_t held = 0;
    std::list<asio::steady_timer *> waiting; ///< One for each body that waits for room.
};

} // namespace tidlo::proxy
