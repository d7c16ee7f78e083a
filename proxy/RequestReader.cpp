#include "proxy/RequestReader.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <string_view>

namespace tidlo::proxy {
namespace {

namespace http = boost::beast::http;
using boost::beast::iequals;

constexpr size_t longestAddress = 8'000;
constexpr size_t longestDevice = 128;

/// An address of the service.
struct Address
{
    std::string_view path;
    std::array<http::verb, 2> methods;
    const char *allow;
};

constexpr std::array addresses{
    Address{"/explain", {http::verb::post, http::verb::post}, "POST"},
    Address{"/healthz", {http::verb::get, http::verb::head}, "GET, HEAD"},
};

const Address *addressOf(const RequestParser &parser)
{
    const std::string_view target = parser.get().target();
    const std::string_view path = target.substr(0, target.find('?'));
    const auto *found = std::ranges::find_if(addresses, [&](const Address &known) { return path == known.path; });
    return found == addresses.end() ? nullptr : found;
}

bool isDevice(std::string_view text)
{
    const auto isVisible = [](char character) { return character > ' ' && character < '\x7f'; };
    return !text.empty() && text.size() <= longestDevice && std::ranges::all_of(text, isVisible);
}

bool isJson(std::string_view contentType)
{
    const std::string_view type = contentType.substr(0, contentType.find(';'));
    return iequals(type.substr(0, type.find_last_not_of(" \t") + 1), "application/json");
}

std::optional<Answer> answerToQuestion(const RequestParser &parser, size_t longestBody)
{
    const auto &head = parser.get();
    if (!isDevice(head["X-Device-UUID"]))
        return refusal(Refusal::noDevice);
    if (!isJson(head[http::field::content_type]))
        return refusal(Refusal::notJson);
    if (!head[http::field::content_encoding].empty())
        return refusal(Refusal::packed);
    if (parser.chunked())
        return std::nullopt;
    if (!parser.content_length())
        return refusal(Refusal::noLength);
    return *parser.content_length() > longestBody ? std::optional(refusal(Refusal::tooLong)) : std::nullopt;
}

Answer malformed(const QString &reason)
{
    return refusal(Refusal::badRequest, reason);
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

std::optional<Answer> answerToHead(const RequestParser &parser, size_t longestBody)
{
    const auto &head = parser.get();
    if (head.target().size() > longestAddress)
        return refusal(Refusal::addressTooLong);
    if (head.method() == http::verb::unknown)
        return refusal(Refusal::unknownMethod);
    const Address *address = addressOf(parser);
    if (address == nullptr)
        return refusal(Refusal::notFound);
    if (std::ranges::find(address->methods, head.method()) == address->methods.end()) {
        Answer answer = refusal(Refusal::notAllowed);
        answer.allow = address->allow;
        return answer;
    }
    if (head.method() == http::verb::post)
        return answerToQuestion(parser, longestBody);
    return Answer{.body = R"({"status":"ok"})"};
}

const char *nameForLog(const RequestParser &parser)
{
    const Address *address = parser.is_header_done() ? addressOf(parser) : nullptr;
    return address == nullptr ? "other" : address->path.data();
}

std::variant<QString, Answer> readPrompt(const std::string &body)
{
    const auto [request, error] =
        decode<GeminiGenerateRequest>(QByteArray::fromRawData(body.data(), static_cast<qsizetype>(body.size())));
    if (!request)
        return malformed(error);
    const QString prompt = textIn(*request);
    if (prompt.trimmed().isEmpty())
        return malformed(QStringLiteral("It holds no text."));
    return prompt;
}

} // namespace tidlo::proxy
