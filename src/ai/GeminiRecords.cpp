#include "ai/GeminiRecords.h"

#include "ai/BoundedJson.h"

#include <array>

namespace tidlo {

namespace {

using Json = nlohmann::json;

constexpr std::array<std::string_view, 7> keys{"candidates", "content", "contents", "error",
                                               "message",    "parts",   "text"};

/// Thrown only within this file; the reason is a sentence for a person.
struct DecodingError
{
    QString reason;
};

[[noreturn]] void fail(const char *key, const char *reason)
{
    throw DecodingError{QStringLiteral("The key \"%1\" %2.").arg(QLatin1StringView(key), QLatin1StringView(reason))};
}

/// The value of \a key, or null if it is missing. \a object must be an object.
const Json *find(const Json &object, const char *key)
{
    if (!object.is_object())
        throw DecodingError{QStringLiteral("An object with the key \"%1\" was expected.").arg(QLatin1StringView(key))};
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

const Json &required(const Json &object, const char *key)
{
    const Json *value = find(object, key);
    if (value == nullptr)
        fail(key, "is missing");
    return *value;
}

QString text(const Json &value, const char *key)
{
    if (!value.is_string())
        fail(key, "must be a text");
    return QString::fromStdString(value.get_ref<const std::string &>());
}

template <typename Element>
QList<Element> list(const Json &object, const char *key, Element (*read)(const Json &))
{
    const Json &values = required(object, key);
    if (!values.is_array())
        fail(key, "must be a list");
    QList<Element> elements;
    for (const Json &value : values)
        elements.append(read(value));
    return elements;
}

GeminiPart partFrom(const Json &json)
{
    const Json *value = find(json, "text");
    if (value == nullptr || value->is_null())
        return {};
    return {.text = text(*value, "text")};
}

GeminiContent contentFrom(const Json &json)
{
    return {.parts = list(json, "parts", partFrom)};
}

GeminiCandidate candidateFrom(const Json &json)
{
    return {.content = contentFrom(required(json, "content"))};
}

void read(const Json &json, GeminiGenerateRequest &request)
{
    request.contents = list(json, "contents", contentFrom);
}

void read(const Json &json, GeminiGenerateResponse &response)
{
    response.candidates = list(json, "candidates", candidateFrom);
}

void read(const Json &json, ProxyErrorResponse &response)
{
    response.error = text(required(json, "error"), "error");
    response.message = text(required(json, "message"), "message");
}

template <typename Element>
Json listOf(const QList<Element> &elements, Json (*write)(const Element &))
{
    Json json = Json::array();
    for (const Element &element : elements)
        json.push_back(write(element));
    return json;
}

Json toJson(const GeminiPart &part)
{
    Json json = Json::object();
    if (part.text)
        json["text"] = part.text->toStdString();
    return json;
}

Json toJson(const GeminiContent &content)
{
    Json json;
    json["parts"] = listOf(content.parts, toJson);
    return json;
}

Json toJson(const GeminiCandidate &candidate)
{
    Json json;
    json["content"] = toJson(candidate.content);
    return json;
}

QByteArray written(const Json &json)
{
    return QByteArray::fromStdString(json.dump());
}

} // namespace

QByteArray encode(const GeminiGenerateRequest &request)
{
    Json json;
    json["contents"] = listOf(request.contents, toJson);
    return written(json);
}

QByteArray encode(const GeminiGenerateResponse &response)
{
    Json json;
    json["candidates"] = listOf(response.candidates, toJson);
    return written(json);
}

QByteArray encode(const ProxyErrorResponse &response)
{
    Json json;
    json["error"] = response.error.toStdString();
    json["message"] = response.message.toStdString();
    return written(json);
}

template <typename Record>
Decoded<Record> decode(const QByteArray &json)
{
    const auto [document, refusal] = readBoundedJson(json, keys);
    if (!refusal.isEmpty())
        return {.record = std::nullopt, .error = refusal};
    try {
        Record record;
        read(document, record);
        return {.record = std::move(record), .error = {}};
    } catch (const DecodingError &error) {
        return {.record = std::nullopt, .error = error.reason};
    }
}

template Decoded<GeminiGenerateRequest> decode(const QByteArray &json);
template Decoded<GeminiGenerateResponse> decode(const QByteArray &json);
template Decoded<ProxyErrorResponse> decode(const QByteArray &json);

} // namespace tidlo
