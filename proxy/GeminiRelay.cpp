#include "proxy/GeminiRelay.h"

#include <QUrl>

#include <algorithm>

#include <httplib.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr size_t longestReply = 1024 * 1024;

/// How an unsuccessful status of the model's server is told.
struct Refusal
{
    int status;
    const char *error;
    const char *message;
};

constexpr const char *misconfigured = "The AI service is not set up correctly. Please tell whoever runs it.";
constexpr const char *busy = "The AI model has too much to do at the moment. Please try again in a few minutes.";

constexpr std::array refusals{
    Refusal{400, "upstream_refused", misconfigured},
    Refusal{401, "upstream_refused", misconfigured},
    Refusal{403, "upstream_refused", misconfigured},
    Refusal{404, "upstream_refused", misconfigured},
    Refusal{429, "upstream_busy", busy},
    Refusal{503, "upstream_busy", busy},
};

Answer badGateway(const char *error, const char *message)
{
    return failure(502, error, QString::fromLatin1(message));
}

Answer refused(int status)
{
    const auto row = std::ranges::find(refusals, status, &Refusal::status);
    if (row != refusals.end())
        return badGateway(row->error, row->message);
    return badGateway("upstream_failed", "The AI model could not answer. Please try again later.");
}

bool hasText(const GeminiCandidate &candidate)
{
    return std::ranges::any_of(candidate.content.parts,
                               [](const GeminiPart &part) { return part.text && !part.text->isEmpty(); });
}

/// The candidates' texts, and nothing else of what came with them.
Answer answered(const std::string &body)
{
    const auto [response, error] = decode<GeminiGenerateResponse>(QByteArray::fromStdString(body));
    if (!response || !std::ranges::any_of(response->candidates, hasText))
        return badGateway("upstream_silent", "The AI model gave no answer that could be shown.");
    return {.body = encode(*response)};
}

httplib::Request post(const GeminiGenerateRequest &request, const Upstream &upstream)
{
    httplib::Request post;
    post.method = "POST";
    post.path = QStringLiteral("%1/v1beta/models/%2:generateContent")
                    .arg(QUrl(upstream.baseUrl).path(QUrl::FullyEncoded), upstream.model)
                    .replace(QStringLiteral("//"), QStringLiteral("/"))
                    .toStdString();
    post.headers = {{"Content-Type", "application/json"}, {"x-goog-api-key", upstream.key.toStdString()}};
    post.body = encode(request).toStdString();
    return post;
}

void setTimes(httplib::Client &client, std::chrono::milliseconds timeLimit)
{
    client.set_connection_timeout(std::min<std::chrono::milliseconds>(timeLimit, std::chrono::seconds(10)));
    client.set_read_timeout(timeLimit);
    client.set_write_timeout(timeLimit);
}

} // namespace

Answer relay(const GeminiGenerateRequest &request, const Upstream &upstream, std::chrono::milliseconds timeLimit)
{
    const Clock::time_point deadline = Clock::now() + timeLimit;
    const QUrl origin = QUrl(upstream.baseUrl).adjusted(QUrl::RemovePath);
    httplib::Client client(origin.toString(QUrl::FullyEncoded).toStdString());
    setTimes(client, timeLimit);
    httplib::Request question = post(request, upstream);
    std::string body;
    question.content_receiver = [&](const char *bytes, size_t count, uint64_t, uint64_t) {
        body.append(bytes, count);
        return body.size() <= longestReply && Clock::now() < deadline;
    };
    const httplib::Result reply = client.send(question);
    if (!reply && (Clock::now() >= deadline || reply.error() == httplib::Error::ConnectionTimeout))
        return failure(504, "upstream_late", QStringLiteral("The AI model took too long. Please try again later."));
    if (!reply)
        return badGateway("upstream_unreachable", "The AI model could not be reached. Please try again later.");
    return reply->status == 200 ? answered(body) : refused(reply->status);
}
