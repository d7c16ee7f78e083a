#include "proxy/ChatReply.h"

#include <nlohmann/json.hpp>

namespace tidlo::proxy {
namespace {

using Json = nlohmann::json;

// The depth of each part of {"choices":[{"message":{"content":"..."}}]}.
constexpr int inReply = 1;
constexpr int inChoices = 2;
constexpr int inChoice = 3;
constexpr int inMessage = 4;

} // namespace

QString textOfFirstChoice(const QByteArray &json)
{
    int choices = 0;
    const auto isWanted = [&](int depth, Json::parse_event_t event, const Json &parsed) {
        switch (event) {
        case Json::parse_event_t::key:
            return parsed == (depth == inReply ? "choices" : depth == inChoice ? "message" : "content");
        case Json::parse_event_t::object_start:
            return depth < inMessage && (depth != inChoices || ++choices == 1);
        case Json::parse_event_t::array_start:
            return depth == inReply;
        case Json::parse_event_t::value:
            return depth == inMessage;
        case Json::parse_event_t::object_end:
        case Json::parse_event_t::array_end:
            break;
        }
        return true;
    };
    const Json reply = Json::parse(json.begin(), json.end(), isWanted, false);
    static const Json::json_pointer place("/choices/0/message/content");
    if (!reply.is_object() || !reply.contains(place) || !reply.at(place).is_string())
        return {};
    return QString::fromStdString(reply.at(place).get<std::string>());
}

} // namespace tidlo::proxy
