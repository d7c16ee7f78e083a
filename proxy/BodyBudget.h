#pragma once

#include "proxy/Asio.h"

#include <list>

namespace tidlo::proxy {

/// How many bytes the bodies of all requests may hold together, so that many of them take no more memory than there is.
class BodyBudget final
{
public:
    /// A body of so many bytes always passes: most questions do even while somebody tries to use up all the rest.
    static constexpr size_t alwaysPasses = size_t{8} * 1024;

    explicit BodyBudget(size_t most)
        : most(most)
    {}

    /// What one body holds, until this goes away.
    class Share final
    {
    public:
        explicit Share(BodyBudget *whole)
            : budget(whole)
        {}
        ~Share() { set(0); }
        Share(const Share &) = delete;
        Share &operator=(const Share &) = delete;

        /// Holds \a bytes in all, as soon as there is room for them; the first to wait gets room first. Returns whether
        /// there was room before \a deadline; if not, it still holds what it held.
        Task<bool> hold(size_t bytes, Clock::time_point deadline);
        /// Holds nothing any more.
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
    std::list<asio::steady_timer *> waiting; ///< One for each body that finds no room.
};

} // namespace tidlo::proxy
