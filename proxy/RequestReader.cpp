#include "proxy/RequestReader.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr qsizetype longestDevice = 128;

bool isDevice(const QByteArray &text)
{
    const auto isVisible = [](char character) { return character > ' ' && character < '\x7f'; };
    return !text.isEmpty() && text.size() <= longestDevice && std::ranges::all_of(text, isVisible);
}

bool isJson(const QByteArray &contentType)
{
    return contentType.split(';').constFirst().trimmed().toLower() == "application/json";
}

bool isNumber(const QByteArray &text)
{
    return !text.isEmpty() && std::ranges::all_of(text, [](char digit) { return digit >= '0' && digit <= '9'; });
}

Answer malformed(const QString &reason)
{
    return failure(400, "bad_request", QStringLiteral("The request could not be understood. ") + reason);
}

QString textIn(const GeminiGenerateRequest &request)
{
    QStringList texts;
    for (const GeminiContent &content : request.contents) {
        for (const GeminiPart &part : content.parts) {
            if (part.text)
                texts.append(*part.text);
        }
    }
    return texts.join(u'\n');
}

} // namespace

std::optional<Answer> refusalOf(const RequestHead &head)
{
    if (!isDevice(head.device))
        return failure(400, "no_device", QStringLiteral("The request does not tell which device it comes from."));
    if (!isJson(head.contentType))
        return failure(415, "not_json", QStringLiteral("The request must be JSON."));
    if (!head.encoding.isEmpty())
        return failure(415, "packed", QStringLiteral("The request must not be compressed."));
    if (head.isChunked)
        return std::nullopt;
    if (head.contentLength.isEmpty())
        return failure(411, "no_length", QStringLiteral("The request does not tell how long it is."));
    if (!isNumber(head.contentLength))
        return malformed(QStringLiteral("Its length is not a number."));
    bool fits = false;
    const qulonglong length = head.contentLength.toULongLong(&fits);
    if (!fits || length > static_cast<qulonglong>(longestBody))
        return tooLong();
    return std::nullopt;
}

std::variant<QString, Answer> readPrompt(const QByteArray &body)
{
    const auto [request, error] = decode<GeminiGenerateRequest>(body);
    if (!request)
        return malformed(error);
    const QString prompt = textIn(*request);
    if (prompt.trimmed().isEmpty())
        return malformed(QStringLiteral("It holds no text."));
    return prompt;
}

Answer tooLong()
{
    return failure(413, "too_long", QStringLiteral("The request is too long: more than 256 KB."));
}
