#pragma once

#include "ai/ExplainRequest.h"

#include <QCoro/QCoroTask>

#include <functional>
#include <stop_token>

namespace tidlo {

/// How the caller stays in control of a request.
struct ExplainWatch
{
    std::stop_token unwanted{};                                   ///< A stop, requested on the main thread, cancels the
                                                                  ///< request.
    std::function<void(const ExplainRequest &request)> sending{}; ///< Called just before the request is sent; not
                                                                  ///< called if nothing is sent.
};

/// The one network component: asks the AI proxy to explain findings. This is its whole public interface; it has no
/// state.
///
/// It sends only the text of promptFor() (Prompt.h) and an identifier of the machine, never the content of a file. The
/// answer is untrusted text: to be shown as plain text and never acted upon.
class GeminiClient final
{
public:
    GeminiClient() = delete;

    /// Asks for an explanation of all \a candidates, over HTTPS. Returns the answer, an error text that begins with
    /// "⚠️
    /// ", or nothing if no answer came that can be shown, or none is wanted any more. Never throws and never tries
    /// twice. Called on the main thread, which it does not block: a separate thread asks, waits and decodes. When the
    /// time limit is reached or the application quits, that thread is told to end, and is left behind if the system
    /// blocks it; the answer then says so.
    static QCoro::Task<std::optional<QString>> explain(QList<CleanupCandidate> candidates,
                                                       ExplainEndpoint endpoint = {}, ExplainWatch watch = {});

    /// Whether the result of explain() is an error text.
    static bool isError(const QString &explanation);

    /// The identifier of this machine in every request, "mac-unknown" if there is none. Each call reads it anew.
    static QString deviceUUID();
};

} // namespace tidlo
