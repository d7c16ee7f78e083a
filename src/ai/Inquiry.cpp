#include "ai/Inquiry.h"

#include "platform/QuitLimit.h"

#include <QCoreApplication>
#include <QCoro/QCoroFuture>
#include <QPromise>
#include <QTimer>

#include <memory>
#include <system_error>
#include <thread>

namespace tidlo {

namespace {

using Answer = Inquiry::Answer;

/// An inquiry under way, shared by its thread and the main thread.
class Asking final
{
public:
    explicit Asking(Inquiry asked)
        : inquiry(std::move(asked))
    {}

    QFuture<Answer> answer() { return promise.future(); }

    /// Must be called only once.
    void ask() { settle(inquiry.ask(exchange)); }

    void giveUp(const QString &reason)
    {
        givenUp = true;
        settle(inquiry.excuse(reason));
        exchange.stop();
    }

    bool isGivenUp() const { return givenUp; }

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
    bool givenUp = false; ///< For the main thread only.
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

void end(std::thread thread, const Asking &asking)
{
    if (!thread.joinable())
        return;
    if (asking.isGivenUp())
        leaveToSystem(std::move(thread));
    else
        thread.join();
}

} // namespace

QCoro::Task<Answer> inquire(Inquiry inquiry)
{
    const auto asking = std::make_shared<Asking>(inquiry);
    QTimer limit; // Its connections end with it.
    QObject::connect(&limit, &QTimer::timeout, &limit,
                     [asking] { asking->giveUp(QStringLiteral("The request timed out.")); });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &limit,
                     [asking] { asking->giveUp(QStringLiteral("The application quit.")); });
    limit.setTimerType(Qt::PreciseTimer);
    limit.start(inquiry.timeLimit);
    std::thread thread = start(asking);
    const std::stop_callback cut(inquiry.unwanted,
                                 [asking] { asking->giveUp(QStringLiteral("Nobody wants it any more.")); });
    const Answer answer = co_await asking->answer();
    end(std::move(thread), *asking);
    co_return answer;
}

} // namespace tidlo
