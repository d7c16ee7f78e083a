#include "ai/Inquiry.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QPromise>
#include <QTimer>

#include <coroutine>
#include <memory>
#include <semaphore>
#include <system_error>
#include <thread>

namespace tidlo {

namespace {

using Answer = Inquiry::Answer;
using Watcher = QFutureWatcher<Answer>;

/// An inquiry under way, shared by its thread and the main thread.
class Asking final
{
public:
    explicit Asking(Inquiry asked)
        : inquiry(std::move(asked))
    {}

    QFuture<Answer> answer() { return promise.future(); }

    /// To be called once.
    void ask()
    {
        settle(inquiry.ask(exchange));
        ended.release();
    }

    void giveUp(const QString &reason)
    {
        settle(inquiry.excuse(reason));
        exchange.stop();
    }

    /// Whether ask() has nothing left to do. If it was given up that may take a moment, or as long as the system holds
    /// it; this waits for the moment alone.
    bool hasEnded() { return ended.try_acquire_for(std::chrono::milliseconds(500)); }

private:
    /// The first answer counts.
    void settle(const Answer &text)
    {
        promise.addResult(text);
        promise.finish();
    }

    Inquiry inquiry;
    HttpsExchange exchange;
    QPromise<Answer> promise;
    std::binary_semaphore ended{0};
};

std::thread start(const std::shared_ptr<Asking> &asking)
{
    try {
        return std::thread([asking] { asking->ask(); });
    } catch (const std::system_error &error) {
        asking->giveUp(QString::fromLocal8Bit(error.what()));
        return {};
    }
}

void end(std::thread &thread, Asking &asking)
{
    if (!thread.joinable())
        return;
    if (asking.hasEnded())
        thread.join();
    else
        thread.detach();
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

} // namespace

QCoro::Task<Answer> inquire(Inquiry inquiry)
{
    const auto asking = std::make_shared<Asking>(inquiry);
    // The wait below ends inside a signal of the watcher, which must live until it returns.
    const std::unique_ptr<Watcher, LaterDeleter> watcher(new Watcher);
    QTimer limit; // Whatever is connected here ends with it.
    std::coroutine_handle<> waiting;
    QObject::connect(watcher.get(), &Watcher::finished, &limit, [&waiting] { waiting.resume(); });
    QObject::connect(&limit, &QTimer::timeout, &limit,
                     [asking] { asking->giveUp(QStringLiteral("The request timed out.")); });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &limit, [asking, receiver = watcher.get()] {
        asking->giveUp(QStringLiteral("The application quit."));
        QCoreApplication::sendPostedEvents(receiver); // No event loop is left that would.
    });
    watcher->setFuture(asking->answer());
    limit.setTimerType(Qt::PreciseTimer);
    limit.start(inquiry.timeLimit);
    std::thread thread = start(asking);
    const Suspension untilAnswered{&waiting};
    co_await untilAnswered;
    end(thread, *asking);
    co_return watcher->result();
}

} // namespace tidlo
