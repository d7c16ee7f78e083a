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

    /// Returns the answer. It runs on a separate thread and may block. Stopping \a exchange ends it.
    std::function<Answer(HttpsExchange &exchange)> ask;

    /// Makes the answer if that thread gives none, from the \a reason, a sentence for a person.
    std::function<Answer(const QString &reason)> excuse;

    std::chrono::milliseconds timeLimit; ///< For the whole inquiry.

    std::stop_token unwanted{}; ///< Stopped on the main thread, it ends the inquiry.
};

/// Asks, and returns the answer. When the time limit is reached, the answer is unwanted or the application quits, the
/// answer is the excuse, at once; the thread is told to stop and, since the system may still block it, left behind as
/// QuitLimit.h explains. Called on the main thread, which it does not block. The coroutine resumes in the event loop.
QCoro::Task<Inquiry::Answer> inquire(Inquiry inquiry);

} // namespace tidlo
