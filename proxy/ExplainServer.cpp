#include "proxy/ExplainServer.h"

#include <array>
#include <cstdio>

namespace {

using httplib::Request;
using httplib::Response;
using HandlerResponse = httplib::Server::HandlerResponse;

/// What the library turns down by itself.
constexpr std::array refusals{
    FailureWords{404, "not_found", "There is nothing at this address."},
    FailureWords{405, "not_allowed", "This cannot be done at this address."},
    FailureWords{408, "not_whole", "The request did not arrive whole in time."},
    FailureWords{414, "too_long", "The address of the request is too long."},
    FailureWords{500, "failed", "Something went wrong in the AI service. Please try again later."},
};
constexpr FailureWords anyOther{400, "bad_request", "The request could not be understood."};

Answer refusal(int status)
{
    const FailureWords words = wordsFor(status, refusals, anyOther);
    return failure(status, words.error, QString::fromLatin1(words.message));
}

Answer tooOften(std::chrono::seconds wait)
{
    const auto seconds = static_cast<int>(wait.count());
    Answer answer =
        failure(429, "too_often",
                QStringLiteral("Too many explanations were asked for. Please wait %1 and try again.")
                    .arg(seconds == 1 ? QStringLiteral("1 second") : QStringLiteral("%1 seconds").arg(seconds)));
    answer.retryAfter = seconds;
    return answer;
}

void send(const Answer &answer, Response &response)
{
    response.status = answer.status;
    response.reason = answer.error.toStdString(); // For the log alone.
    response.set_content(answer.body.toStdString(), "application/json");
    response.set_header("Cache-Control", "no-store");
    if (answer.retryAfter > 0)
        response.set_header("Retry-After", std::to_string(answer.retryAfter));
}

RequestHead headOf(const Request &request)
{
    const auto header = [&](const char *name) { return QByteArray::fromStdString(request.get_header_value(name)); };
    return {.device = header("X-Device-UUID"),
            .contentType = header("Content-Type"),
            .encoding = header("Content-Encoding"),
            .contentLength = header("Content-Length"),
            .isChunked = header("Transfer-Encoding").toLower() == "chunked"};
}

/// The answer to whatever is no question, or cannot be one by what its head tells.
std::optional<Answer> answerToHead(const Request &request)
{
    if (request.path == "/healthz")
        return request.method == "GET" || request.method == "HEAD" ? Answer{.body = R"({"status":"ok"})"}
                                                                   : refusal(405);
    if (request.path != "/explain")
        return refusal(404);
    if (request.method != "POST")
        return refusal(405);
    return refusalOf(headOf(request));
}

/// Nothing that a client wrote gets into the log, but for the two addresses.
void logOutcome(const Request &request, const Response &response)
{
    const bool isKnown = request.path == "/explain" || request.path == "/healthz";
    std::fprintf(stderr, "%s %d%s%s\n", isKnown ? request.path.c_str() : "other", response.status,
                 response.reason.empty() ? "" : " ", response.reason.c_str());
}

} // namespace

ExplainServer::ExplainServer(Explain explainOne, int perMinute, std::shared_ptr<SSL_CTX> tls,
                             const ConnectionLimits &limits)
    : explain(std::move(explainOne))
    , limiter(perMinute)
    , server(std::move(tls), limits)
{
    server.set_pre_routing_handler([this](const Request &request, Response &response) {
        const std::optional<Answer> answer = answerBeforeBody(request);
        if (!answer)
            return HandlerResponse::Unhandled;
        send(*answer, response);
        return HandlerResponse::Handled;
    });
    server.set_expect_100_continue_handler([](const Request &request, Response &response) {
        constexpr int goOn = 100;
        const std::optional<Answer> answer = answerToHead(request);
        if (answer)
            send(*answer, response);
        return answer ? answer->status : goOn;
    });
    server.Post("/explain", [this](const Request &, Response &response, const httplib::ContentReader &readBody) {
        send(answerToBody(readBody), response);
    });
    server.set_error_handler(httplib::Server::Handler([](const Request &, Response &response) {
        if (response.body.empty())
            send(refusal(response.status), response);
    }));
    server.set_exception_handler(
        [](const Request &, Response &response, const std::exception_ptr &) { send(refusal(500), response); });
    server.set_logger(logOutcome);
}

/// Everything but a question that is to be read: the library would read any other body, however long.
std::optional<Answer> ExplainServer::answerBeforeBody(const Request &request)
{
    if (auto answer = answerToHead(request))
        return answer;
    const QByteArray device = headOf(request).device;
    const std::chrono::seconds wait = limiter.admit(device, RateLimiter::Time::clock::now());
    return wait.count() == 0 ? std::nullopt : std::optional(tooOften(wait));
}

Answer ExplainServer::answerToBody(const httplib::ContentReader &readBody)
{
    const auto prompt = promptFrom(readBody);
    if (const auto *answer = std::get_if<Answer>(&prompt))
        return *answer;
    return explain(std::get<QString>(prompt));
}

std::variant<QString, Answer> ExplainServer::promptFrom(const httplib::ContentReader &readBody)
{
    QByteArray body;
    const bool isWhole = readBody([&](const char *bytes, size_t count) {
        body.append(bytes, static_cast<qsizetype>(count));
        return body.size() <= longestBody;
    });
    if (body.size() > longestBody)
        return tooLong();
    if (!isWhole)
        return refusal(408);
    const std::lock_guard alone(reading);
    return readPrompt(body);
}
