#pragma once

#include "ai/HttpsExchange.h"

#include <QCoro/QCoroTask>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace tidlo {

/// What one thread finds out while the main thread waits for it, or gives it up.
struct Inquiry
{
    using Answer = std::optional<QString>;

    /// Waits for what it gives, on a thread of its own. To be stopped by its exchange.
    std::function<Answer(HttpsExchange &exchange)> ask;

    /// The answer where there is none from that thread: why, for a person.
    std::function<Answer(const QString &reason)> excuse;

    std::chrono::milliseconds timeLimit; ///< For all of it.
};

/// Asks, and gives the answer. When the time is over or the application quits, the answer is an excuse, at once; then
/// the thread is stopped and, since the system may hold it all the same, left to it as QuitLimit.h explains. Called on
/// the main thread, which it does not block. The coroutine goes on in a turn of the event loop.
QCoro::Task<Inquiry::Answer> inquire(Inquiry inquiry);

} // namespace tidlo
