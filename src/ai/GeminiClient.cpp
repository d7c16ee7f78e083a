#include "ai/GeminiClient.h"

#include "ai/GeminiRecords.h"
#include "ai/HttpsPost.h"
#include "ai/Inquiry.h"
#include "ai/Prompt.h"

#include <QStringList>

namespace tidlo {

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
    const Inquiry inquiry{.ask =
                              [request, endpoint](HttpsExchange &exchange) mutable {
                                  request.authorities = endpoint.authorities();
                                  return explanation(httpsPost(request, exchange));
                              },
                          .excuse = requestFailed,
                          .timeLimit = endpoint.timeLimit};
    co_return co_await inquire(inquiry);
}

} // namespace tidlo
