#include "proxy/GeminiRelay.h"

#include "proxy/SocketDeadline.h"

#include <QUrl>

#include <algorithm>
#include <array>

#include <httplib.h>

namespace {

using Clock = SocketDeadline::Clock;

constexpr size_t longestReply = 1024 * 1024;

constexpr const char *misconfigured = "The AI service is not set up correctly. Please tell whoever runs it.";
constexpr const char *busy = "The AI model has too much to do at the moment. Please try again in a few minutes.";

/// How an unsuccessful status of the model's server is told.
constexpr std::array refusals{
    FailureWords{400, "upstream_refused", misconfigured},
    FailureWords{401, "upstream_refused", misconfigured},
    FailureWords{403, "upstream_refused", misconfigured},
    FailureWords{404, "upstream_refused", misconfigured},
    FailureWords{429, "upstream_busy", busy},
    FailureWords{503, "upstream_busy", busy},
};
constexpr FailureWords anyOther{0, "upstream_failed", "The AI model could not answer. Please try again later."};

Answer badGateway(const char *error, const char *message)
{
    return failure(502, error, QString::fromLatin1(message));
}

Answer refused(int status)
{
    const FailureWords words = wordsFor(status, refusals, anyOther);
    return badGateway(words.error, words.message);
}

Answer silent()
{
    return badGateway("upstream_silent", "The AI model gave no answer that could be shown.");
}

/// Whether there is anything in \a response that a client shows: it reads the first candidate alone.
bool hasText(const GeminiGenerateResponse &response)
{
    const auto isText = [](const GeminiPart &part) { return part.text && !part.text->isEmpty(); };
    return !response.candidates.isEmpty() &&
           std::ranges::any_of(response.candidates.constFirst().content.parts, isText);
}

/// The candidates' texts, and nothing else of what came with them.
Answer answered(const std::string &body)
{
    const auto [response, error] = decode<GeminiGenerateResponse>(QByteArray::fromStdString(body));
    if (!response || !hasText(*response))
        return silent();
    return {.body = encode(*response)};
}

httplib::Request post(const QString &prompt, const Upstream &upstream)
{
    const GeminiContent content{.parts = {{prompt}}};
    httplib::Request post;
    post.method = "POST";
    post.path = QStringLiteral("%1/v1beta/models/%2:generateContent")
                    .arg(QUrl(upstream.baseUrl).path(QUrl::FullyEncoded), upstream.model)
                    .replace(QStringLiteral("//"), QStringLiteral("/"))
                    .toStdString();
    post.headers = {{"Content-Type", "application/json"}, {"x-goog-api-key", upstream.key.toStdString()}};
    post.body = encode(GeminiGenerateRequest{.contents = {content}}).toStdString();
    return post;
}

void setTimes(httplib::Client &client, std::chrono::milliseconds timeLimit)
{
    client.set_connection_timeout(std::min<std::chrono::milliseconds>(timeLimit, std::chrono::seconds(10)));
    client.set_read_timeout(timeLimit);
    client.set_write_timeout(timeLimit);
}

} // namespace

Answer relay(const QString &prompt, const Upstream &upstream, std::chrono::milliseconds timeLimit)
{
    const Clock::time_point deadline = Clock::now() + timeLimit;
    const QUrl origin = QUrl(upstream.baseUrl).adjusted(QUrl::RemovePath);
    SocketDeadline socketDeadline(deadline);
    httplib::Client client(origin.toString(QUrl::FullyEncoded).toStdString());
    setTimes(client, timeLimit);
    client.set_socket_options([&](socket_t socket) { socketDeadline.watch(socket); });
    httplib::Request question = post(prompt, upstream);
    std::string body;
    question.content_receiver = [&](const char *bytes, size_t count, uint64_t, uint64_t) {
        body.append(bytes, count);
        return body.size() <= longestReply;
    };
    const httplib::Result reply = client.send(question);
    if (Clock::now() >= deadline || reply.error() == httplib::Error::ConnectionTimeout)
        return failure(504, "upstream_late", QStringLiteral("The AI model took too long. Please try again later."));
    if (body.size() > longestReply)
        return silent();
    if (!reply)
        return badGateway("upstream_unreachable", "The AI model could not be reached. Please try again later.");
    return reply->status == 200 ? answered(body) : refused(reply->status);
}
