#pragma once

#include "proxy/Answer.h"

#include <optional>
#include <string>
#include <variant>

#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

namespace tidlo::proxy {

/// The parser of a request. By itself it limits only the head.
using RequestParser = boost::beast::http::request_parser<boost::beast::http::string_body>;

/// The answer to a request that is no question, or cannot be one according to its head; nothing if its body, of at most
/// \a longestBody bytes, must be read. \a parser has read the head. Any bytes are safe.
std::optional<Answer> answerToHead(const RequestParser &parser, size_t longestBody);

/// The address that was requested if it is one of ours, else "other".
const char *nameForLog(const RequestParser &parser);

/// The prompt in \a body: its texts, unchanged, one per line; or the answer that says why there is none. Nothing else
/// is kept, so that nothing else reaches the model. Any bytes are safe.
std::variant<QString, Answer> readPrompt(const std::string &body);

} // namespace tidlo::proxy
