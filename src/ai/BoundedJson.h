#pragma once

#include <QByteArray>
#include <QString>

#include <nlohmann/json.hpp>

#include <span>
#include <string_view>

namespace tidlo {

/// The wanted part of a document, or why the document is refused.
struct BoundedJson
{
    nlohmann::json document;
    QString refusal; ///< A sentence for a person; empty if the document is not refused.
};

/// Reads \a bytes, which must be one JSON document in UTF-8. Only the values of \a keys are kept of its objects; if a
/// key occurs twice, the last value. Any input is safe: a document with more than 64 levels, or with more than 10,000
/// values, kept or not, is refused, so time and memory grow only with its size. Any thread.
BoundedJson readBoundedJson(const QByteArray &bytes, std::span<const std::string_view> keys);

} // namespace tidlo
