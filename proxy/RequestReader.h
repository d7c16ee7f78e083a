#pragma once

#include "proxy/Answer.h"

#include <optional>
#include <string>
#include <variant>

#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

namespace tidlo::proxy {

/// What reads a request. By itself it limits only the head.
using RequestParser = boost::beast::http::request_parser<boost::beast::http::string_body>;

/// The answer to whatever is no question, or cannot be one by what its head tells: nothing if its body, of at most
/// \a longestBody bytes, is to be read. \a parser has read the head. Any bytes are safe.
std::optional<Answer> answerToHead(const RequestParser &parser, size_t longestBody);

/// The address that was asked if it is one of ours, else "other".
const char *nameForLog(const RequestParser &parser);

/// The prompt in \a body, its texts as they stand, one to a line; or why there is none. Nothing else is kept, so that
/// nothing else reaches the model. Any bytes are safe.
std::variant<QString, Answer> readPrompt(const std::string &body);

} // namespace tidlo::proxy
