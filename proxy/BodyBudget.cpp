#include "proxy/BodyBudget.h"

namespace tidlo::proxy {

Task<bool> BodyBudget::Share::hold(size_t bytes, Clock::time_point deadline)
{
    if (bytes > alwaysPasses && !fits(bytes)) {
        asio::steady_timer turn(co_await asio::this_coro::executor, deadline);
        const auto place = budget->waiting.insert(budget->waiting.end(), &turn);
        while (!fits(bytes) && Clock::now() < deadline)
            co_await turn.async_wait(asTuple());
        budget->waiting.erase(place);
    }
    const bool hasRoom = bytes <= alwaysPasses || fits(bytes);
    if (hasRoom)
        set(bytes);
    budget->wakeFirst(); // There may be room for the next one, too.
    co_return hasRoom;
}

void BodyBudget::Share::set(size_t bytes)
{
    budget->held += bytes - own;
    if (bytes < own)
        budget->wakeFirst();
    own = bytes;
}

void BodyBudget::wakeFirst()
{
    if (!waiting.empty())
        waiting.front()->cancel();
}

} // namespace tidlo::proxy
