#include "ai/GeminiClient.h"

#include "ai/GeminiRecords.h"
#include "ai/HttpsPost.h"
#include "ai/Inquiry.h"
#include "ai/OwnService.h"
#include "ai/TrustedCertificates.h"

#include <QStringList>

namespace tidlo {

namespace {

using Explanation = std::optional<QString>;

/// A warning sign with the emoji variation selector, and a space.
constexpr QStringView warning = u"\u26A0\uFE0F ";

QString withWarning(const QString &text)
{
    return warning.toString() + text;
}

QString requestFailed(const QString &reason)
{
    return withWarning(QStringLiteral("Request failed: ") + reason);
}

/// The texts of the first candidate's parts, one per line.
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

HttpsRequest httpsRequest(const ExplainRequest &request, const ExplainEndpoint &endpoint)
{
    return {.url = QUrl(QStringLiteral("https://") + request.host + QLatin1StringView(request.path), QUrl::StrictMode),
            .headers = request.headers,
            .body = request.body,
            .replyLimit = endpoint.replyLimit};
}

/// Asks on a thread that may block. A service that is started for the question ends with it.
Explanation ask(HttpsRequest request, const ExplainEndpoint &endpoint, HttpsExchange &exchange)
{
    const bool isAlone = endpoint.isOwn() && !isAnswered(request.url);
    const FilePath program = isAlone ? ownServiceProgram() : FilePath();
    QString obstacle;
    const auto service = program.isEmpty() ? std::nullopt : OwnService::start(program, obstacle);
    if (service) {
        request.url.setHost(QStringLiteral("127.0.0.1"));
        request.url.setPort(service->port());
    }
    request.authorities = endpoint.authorities() + ownCertificateFor(request.url.host());
    HttpsReply reply = httpsPost(request, exchange);
    if (!reply.failure.isEmpty() && !obstacle.isEmpty())
        reply.failure += QStringLiteral(" (and the program's own service could not be started: %1)").arg(obstacle);
    return explanation(reply);
}

} // namespace

bool GeminiClient::isError(const QString &explanation)
{
    return explanation.startsWith(warning);
}

QString GeminiClient::deviceUUID()
{
    return machineIdentity().value_or(unknownMachine);
}

QCoro::Task<std::optional<QString>> GeminiClient::explain(QList<CleanupCandidate> candidates, ExplainEndpoint endpoint,
                                                          ExplainWatch watch)
{
    const ExplainRequest shown = explainRequest(candidates, endpoint);
    HttpsRequest request = httpsRequest(shown, endpoint);
    if (!request.url.isValid() || request.url.host().isEmpty() || watch.unwanted.stop_requested())
        co_return std::nullopt;
    if (watch.sending)
        watch.sending(shown);
    const Inquiry inquiry{
        .ask = [request, endpoint](HttpsExchange &exchange) { return ask(request, endpoint, exchange); },
        .excuse = requestFailed,
        .timeLimit = endpoint.timeLimit,
        .unwanted = watch.unwanted};
    const std::optional<QString> answer = co_await inquire(inquiry);
    co_return watch.unwanted.stop_requested() ? std::nullopt : answer;
}

} // namespace tidlo
