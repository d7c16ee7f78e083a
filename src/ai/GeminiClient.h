#pragma once

#include "ai/ExplainRequest.h"

#include <QCoro/QCoroTask>

#include <functional>
#include <stop_token>

namespace tidlo {

/// How whoever asks for an explanation stays in charge of the request.
struct ExplainWatch
{
    std::stop_token unwanted{};                                   ///< Stopped on the main thread, it cuts the request.
    std::function<void(const ExplainRequest &request)> sending{}; ///< Told just before it is sent; not if it is not.
};

/// The one network component: asks the AI proxy to explain findings. This is its whole public face; it keeps no state.
///
/// What is sent is what promptFor() (Prompt.h) writes, and an identifier of the machine; never the content of a file.
/// What comes back is text from outside: to be shown as plain text and never acted upon.
class GeminiClient final
{
public:
    GeminiClient() = delete;

    /// Asks for an explanation of \a candidates, all of them, over HTTPS. Gives the answer, or an error text that
    /// begins with "⚠️ ", or nothing when no answer came that could be shown, or is wanted any more. Never throws
    /// and never tries twice. Called on the main thread, which it does not block: a thread of its own asks, waits and
    /// decodes. When the time is over or the application quits, that thread is told to end, and is left behind if the
    /// system holds it up; the answer then says so.
    static QCoro::Task<std::optional<QString>> explain(QList<CleanupCandidate> candidates,
                                                       ExplainEndpoint endpoint = {}, ExplainWatch watch = {});

    /// Whether what explain() gave is an error text.
    static bool isError(const QString &explanation);

    /// The identifier of this machine that every request carries, "mac-unknown" where there is none. Read anew by every
    /// call.
    static QString deviceUUID();
};

} // namespace tidlo
