#include "proxy/ModelRelay.h"

#include "proxy/Dialect.h"
#include "proxy/Exchange.h"
#include "proxy/RequestReader.h"

namespace tidlo::proxy {
namespace {

/// The request for the model's server, or the answer if there is nothing to ask. About as long as \a body.
std::variant<std::string, Answer> questionIn(const std::string &body, const Upstream &upstream)
{
    const auto prompt = readPrompt(body);
    if (const auto *answer = std::get_if<Answer>(&prompt))
        return *answer;
    const QByteArray question = questionBody(upstream, std::get<QString>(prompt));
    return questionHead(upstream, question.size()) + question.toStdString();
}

/// The answer to the client when the model's server replies with \a status.
Answer refused(int status)
{
    switch (status) {
    case 400:
    case 401:
    case 403:
    case 404:
        return refusal(Refusal::modelRefused);
    case 429:
    case 503:
        return refusal(Refusal::modelBusy);
    default:
        return refusal(Refusal::modelFailed);
    }
}

Answer answered(const Reply &reply, Dialect dialect)
{
    switch (reply.outcome) {
    case Reply::Outcome::unreachable:
        return refusal(Refusal::modelUnreachable);
    case Reply::Outcome::unusable:
        return refusal(Refusal::modelSilent);
    case Reply::Outcome::late:
        return refusal(Refusal::modelLate);
    case Reply::Outcome::whole:
        break;
    }
    if (reply.status != 200)
        return refused(reply.status);
    const QByteArray answer = answerIn(dialect, QByteArray::fromStdString(reply.body));
    return answer.isEmpty() ? refusal(Refusal::modelSilent) : Answer{.body = answer};
}

} // namespace

ModelRelay::ModelRelay(asio::thread_pool *pool, Upstream upstream, std::shared_ptr<SSL_CTX> tls,
                       std::chrono::milliseconds timeLimit)
    : pool(pool)
    , upstream(std::move(upstream))
    , tls(std::move(tls))
    , timeLimit(timeLimit)
{}

Task<Answer> ModelRelay::answer(std::string body) const
{
    auto question = co_await on(pool, [&] { return questionIn(std::exchange(body, {}), upstream); });
    if (const auto *refused = std::get_if<Answer>(&question))
        co_return *refused;
    const Clock::time_point deadline = Clock::now() + timeLimit;
    const Reply reply = co_await exchange(upstream.baseUrl, tls, std::move(std::get<std::string>(question)), deadline);
    co_return co_await on(pool, [&] { return answered(reply, upstream.dialect); });
}

} // namespace tidlo::proxy
