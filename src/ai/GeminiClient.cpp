#include "ai/GeminiClient.h"

#include "ai/GeminiRecords.h"
#include "ai/HttpsPost.h"
#include "ai/Prompt.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QPromise>
#include <QStringList>
#include <QTimer>

#include <coroutine>
#include <semaphore>
#include <system_error>
#include <thread>

namespace {

using Explanation = std::optional<QString>;

/// A warning sign in its colourful form, and a space.
constexpr QStringView warning = u"\u26A0\uFE0F ";

QString withWarning(const QString &text)
{
    return warning.toString() + text;
}

QString requestFailed(const QString &reason)
{
    return withWarning(QStringLiteral("Request failed: ") + reason);
}

/// The text of the first candidate's parts, one to a line.
Explanation answer(const QByteArray &body)
{
    const auto [response, error] = decode<GeminiGenerateResponse>(body);
    if (!response)
        return requestFailed(error);
    if (response->candidates.isEmpty())
        return std::nullopt;
    QStringList texts;
    for (const GeminiPart &part : response->candidates.constFirst().content.parts) {
        if (part.text)
            texts.append(*part.text);
    }
    const QString text = texts.join(QLatin1Char('\n'));
    return text.isEmpty() ? std::nullopt : Explanation(text);
}

QString proxyError(int status, const QByteArray &body)
{
    const auto [response, error] = decode<ProxyErrorResponse>(body);
    if (response)
        return withWarning(response->message);
    return withWarning(
        QStringLiteral("AI service unavailable (HTTP %1). Please check your internet connection.").arg(status));
}

Explanation explanation(const HttpsReply &reply)
{
    if (!reply.failure.isEmpty())
        return requestFailed(reply.failure);
    if (reply.status >= 200 && reply.status <= 299)
        return answer(reply.body);
    if (reply.status >= 400 && reply.status <= 599)
        return proxyError(reply.status, reply.body);
    return std::nullopt;
}

QString orUnknown(const std::optional<QString> &identity)
{
    return identity.value_or(QStringLiteral("mac-unknown"));
}

QByteArray requestBody(const QList<CleanupCandidate> &candidates)
{
    const GeminiPart part{.text = promptFor(candidates)};
    const GeminiContent content{.parts = {part}};
    return encode(GeminiGenerateRequest{.contents = {content}});
}

HttpsRequest requestFor(const QList<CleanupCandidate> &candidates, const ExplainEndpoint &endpoint)
{
    return {
        .url = QUrl(QStringLiteral("https://%1/explain").arg(endpoint.host), QUrl::StrictMode),
        .headers = {{"Content-Type", "application/json"}, {"X-Device-UUID", orUnknown(endpoint.identity()).toUtf8()}},
        .body = requestBody(candidates),
        .replyLimit = endpoint.replyLimit};
}

/// A question that one thread asks and the main thread waits for, or gives up.
class Inquiry final
{
public:
    Inquiry(HttpsRequest question, ExplainEndpoint asked)
        : request(std::move(question))
        , endpoint(std::move(asked))
    {}

    QFuture<Explanation> answer() { return promise.future(); }

    /// Asks and waits. To be called once.
    void ask()
    {
        request.authorities = endpoint.authorities();
        settle(explanation(httpsPost(request, exchange)));
        ended.release();
    }

    void giveUp(const QString &reason)
    {
        settle(requestFailed(reason));
        exchange.stop();
    }

    /// Whether ask() has nothing left to do. If it was given up that may take a moment, or as long as the system holds
    /// it; this waits for the moment alone.
    bool hasEnded() { return ended.try_acquire_for(std::chrono::milliseconds(100)); }

private:
    /// The first answer counts.
    void settle(const Explanation &text)
    {
        promise.addResult(text);
        promise.finish();
    }

    HttpsRequest request;
    ExplainEndpoint endpoint;
    HttpsExchange exchange;
    QPromise<Explanation> promise;
    std::binary_semaphore ended{0};
};

/// The thread that asks. Where the system starts none, that is the answer.
std::thread start(const std::shared_ptr<Inquiry> &inquiry)
{
    try {
        return std::thread([inquiry] { inquiry->ask(); });
    } catch (const std::system_error &error) {
        inquiry->giveUp(QString::fromLocal8Bit(error.what()));
        return {};
    }
}

/// Suspends a coroutine until somebody resumes it.
struct Suspension
{
    std::coroutine_handle<> *suspended; ///< To be resumed.

    bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> handle) const { *suspended = handle; }
    void await_resume() const {}
};

struct LaterDeleter
{
    void operator()(QObject *object) const { object->deleteLater(); }
};

void end(std::thread &thread, Inquiry &inquiry)
{
    if (!thread.joinable())
        return;
    if (inquiry.hasEnded())
        thread.join();
    else
        thread.detach();
}

} // namespace

bool GeminiClient::isError(const QString &explanation)
{
    return explanation.startsWith(warning);
}

QString GeminiClient::deviceUUID()
{
    return orUnknown(machineIdentity());
}

QCoro::Task<std::optional<QString>> GeminiClient::explain(QList<CleanupCandidate> candidates, ExplainEndpoint endpoint)
{
    HttpsRequest request = requestFor(candidates, endpoint);
    if (!request.url.isValid() || request.url.host().isEmpty())
        co_return std::nullopt;
    const auto inquiry = std::make_shared<Inquiry>(std::move(request), endpoint);
    // The wait below ends inside a signal of the watcher, which must live until it returns.
    const std::unique_ptr<QFutureWatcher<Explanation>, LaterDeleter> watcher(new QFutureWatcher<Explanation>);
    watcher->setFuture(inquiry->answer());
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, &limit,
                     [inquiry] { inquiry->giveUp(QStringLiteral("The request timed out.")); });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &limit, [inquiry, waiting = watcher.get()] {
        inquiry->giveUp(QStringLiteral("The application quit."));
        QCoreApplication::sendPostedEvents(waiting); // No event loop is left that would.
    });
    limit.setTimerType(Qt::PreciseTimer);
    limit.start(endpoint.timeLimit);
    std::thread thread = start(inquiry);
    std::coroutine_handle<> waiting;
    QObject::connect(watcher.get(), &QFutureWatcherBase::finished, watcher.get(), [&waiting] { waiting.resume(); });
    const Suspension untilAnswered{&waiting};
    co_await untilAnswered;
    end(thread, *inquiry);
    co_return watcher->result();
}
