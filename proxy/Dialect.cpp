#include "proxy/Dialect.h"

#include "proxy/Answer.h"
#include "proxy/ChatReply.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tidlo::proxy {
namespace {

QString pathOf(const Upstream &upstream)
{
    switch (upstream.dialect) {
    case Dialect::gemini:
        return QStringLiteral("/v1beta/models/%1:generateContent").arg(upstream.model);
    case Dialect::chat:
        break;
    }
    return QStringLiteral("/chat/completions");
}

std::string keyLine(const Upstream &upstream)
{
    if (upstream.key.isEmpty())
        return {};
    const char *name = upstream.dialect == Dialect::gemini ? "x-goog-api-key: " : "Authorization: Bearer ";
    return name + upstream.key.toStdString() + "\r\n";
}

/// Whether \a response contains any text that a client shows: it reads only the first candidate.
bool hasText(const GeminiGenerateResponse &response)
{
    const auto isText = [](const GeminiPart &part) { return part.text && !part.text->isEmpty(); };
    return !response.candidates.isEmpty() &&
           std::ranges::any_of(response.candidates.constFirst().content.parts, isText);
}

} // namespace

std::string questionHead(const Upstream &upstream, qsizetype bodyBytes)
{
    const QString base = upstream.baseUrl.path(QUrl::FullyEncoded);
    const QString path = QString(base + pathOf(upstream)).replace(QStringLiteral("//"), QStringLiteral("/"));
    const QString host = upstream.baseUrl.authority(QUrl::FullyEncoded);
    return "POST " + path.toStdString() + " HTTP/1.1\r\nHost: " + host.toStdString() +
           "\r\nConnection: close\r\nContent-Type: application/json\r\n" + keyLine(upstream) +
           "Content-Length: " + std::to_string(bodyBytes) + "\r\n\r\n";
}

QByteArray questionBody(const Upstream &upstream, const QString &prompt)
{
    if (upstream.dialect == Dialect::gemini) {
        const GeminiContent content{.parts = {{prompt}}};
        return encode(GeminiGenerateRequest{.contents = {content}});
    }
    const nlohmann::json message{{"role", "user"}, {"content", prompt.toStdString()}};
    const nlohmann::json question{{"model", upstream.model.toStdString()}, {"messages", {message}}};
    return QByteArray::fromStdString(question.dump());
}

QByteArray answerIn(Dialect dialect, const QByteArray &reply)
{
    if (dialect == Dialect::chat) {
        const QString text = textOfFirstChoice(reply);
        return text.isEmpty() ? QByteArray() : explanation(text).body;
    }
    const auto [response, error] = decode<GeminiGenerateResponse>(reply);
    return response && hasText(*response) ? encode(*response) : QByteArray();
}

} // namespace tidlo::proxy
