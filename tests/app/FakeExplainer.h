#pragma once

#include "app/AppEnvironment.h"

#include <coroutine>
#include <memory>
#include <vector>

namespace tidlo {

/// Lets requests for an explanation wait until the test answers.
class FakeExplainer final
{
public:
    /// Answers all waiting requests with nothing.
    ~FakeExplainer()
    {
        for (size_t request = 0; request < requests.size(); ++request)
            answer(request, std::nullopt);
    }

    AppEnvironment::Explain explain()
    {
        return [this](QList<CleanupCandidate> candidates, ExplainWatch watch) {
            return ask(std::move(candidates), std::move(watch));
        };
    }

    size_t asked() const { return requests.size(); }
    const QList<CleanupCandidate> &candidates(size_t request) const { return requests.at(request)->candidates; }

    bool isCut(size_t request) const { return requests.at(request)->unwanted.stop_requested(); }

    /// Answers a request and resumes its coroutine before returning; does nothing if it was answered already.
    void answer(size_t request, const std::optional<QString> &text)
    {
        Request &asking = *requests.at(request);
        asking.text = text;
        if (const auto waiting = std::exchange(asking.waiting, nullptr))
            waiting.resume();
    }

private:
    struct Request
    {
        QList<CleanupCandidate> candidates;
        std::stop_token unwanted;
        std::optional<QString> text;
        std::coroutine_handle<> waiting;
    };

    /// The awaitable of a request. g++ 12 awaits a copy even of a named object, so this holds only a pointer.
    struct Answer
    {
        Request *request;

        bool await_ready() const { return false; }
        void await_suspend(std::coroutine_handle<> handle) const { request->waiting = handle; }
        void await_resume() const {}
    };

    QCoro::Task<std::optional<QString>> ask(QList<CleanupCandidate> candidates, ExplainWatch watch)
    {
        const auto request = std::make_shared<Request>();
        request->candidates = std::move(candidates);
        request->unwanted = watch.unwanted;
        watch.sending(explainRequest(request->candidates, {.host = QStringLiteral("explain.example")}));
        requests.push_back(request);
        const Answer answer{request.get()};
        co_await answer;
        co_return request->text;
    }

    std::vector<std::shared_ptr<Request>> requests;
};

} // namespace tidlo
