#pragma once

#include "ai/HttpsExchange.h"

#include <QCoro/QCoroTask>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace tidlo {

/// A question that one thread asks while the main thread waits for the answer, or gives up.
struct Inquiry
{
    using Answer = std::optional<QString>;

    /// Returns the answer, and may wait for it: it runs on a thread of its own. Stopping its exchange ends it.
    std::function<Answer(HttpsExchange &exchange)> ask;

    /// The answer when that thread gives none: the reason, for a person.
    std::function<Answer(const QString &reason)> excuse;

    std::chrono::milliseconds timeLimit; ///< For the whole inquiry.

    std::stop_token unwanted{}; ///< Stopped on the main thread, it ends the inquiry.
};

/// Asks, and gives the answer. When the time is over, nobody wants it any more or the application quits, the answer is
/// the excuse, at once; the thread is told to stop and, since the system may still hold it up, left behind as
/// QuitLimit.h explains. Called on the main thread, which it does not block. The coroutine goes on in a turn of the
/// event loop.
QCoro::Task<Inquiry::Answer> inquire(Inquiry inquiry);

} // namespace tidlo
