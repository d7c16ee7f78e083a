#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace tidlo {

/// The messages exchanged with the AI proxy. Keys are the field names; unknown keys are ignored, and a record fails to
/// decode if a key is missing. Only a text part may be missing or null.

struct GeminiPart
{
    std::optional<QString> text;
    bool operator==(const GeminiPart &) const = default;
};

struct GeminiContent
{
    QList<GeminiPart> parts;
    bool operator==(const GeminiContent &) const = default;
};

struct GeminiGenerateRequest
{
    QList<GeminiContent> contents;
    bool operator==(const GeminiGenerateRequest &) const = default;
};

struct GeminiCandidate
{
    GeminiContent content;
    bool operator==(const GeminiCandidate &) const = default;
};

struct GeminiGenerateResponse
{
    QList<GeminiCandidate> candidates;
    bool operator==(const GeminiGenerateResponse &) const = default;
};

struct ProxyErrorResponse
{
    QString error;
    QString message;
    bool operator==(const ProxyErrorResponse &) const = default;
};

/// A record read from JSON, or a sentence for a person that says why there is none.
template <typename Record>
struct Decoded
{
    std::optional<Record> record;
    QString error; ///< Empty when there is a record.
};

/// Compact JSON. Encoding cannot fail: any text becomes valid UTF-8.
QByteArray encode(const GeminiGenerateRequest &request);
QByteArray encode(const GeminiGenerateResponse &response);
QByteArray encode(const ProxyErrorResponse &response);

/// Reads \a json, which must be UTF-8 and contain only the record. Any input is safe, however deep or large: see
/// BoundedJson.h. From any thread.
template <typename Record>
Decoded<Record> decode(const QByteArray &json);

extern template Decoded<GeminiGenerateRequest> decode(const QByteArray &json);
extern template Decoded<GeminiGenerateResponse> decode(const QByteArray &json);
extern template Decoded<ProxyErrorResponse> decode(const QByteArray &json);

} // namespace tidlo
