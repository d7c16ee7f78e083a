#include "proxy/Answer.h"

#include <algorithm>
#include <array>

namespace tidlo::proxy {
namespace {

struct Words
{
    Refusal reason;
    int status;
    const char *error;
    const char *message;
};

constexpr std::array table{
    Words{Refusal::badRequest, 400, "bad_request", "The request could not be understood."},
    Words{Refusal::noDevice, 400, "no_device", "The request does not say which device it comes from."},
    Words{Refusal::notFound, 404, "not_found", "There is nothing at this address."},
    Words{Refusal::notAllowed, 405, "not_allowed", "This address does not allow the method of the request."},
    Words{Refusal::notWhole, 408, "not_whole", "The request did not arrive completely in time."},
    Words{Refusal::noLength, 411, "no_length", "The request does not say how long it is."},
    Words{Refusal::tooLong, 413, "too_long", "The request is too long: more than 256 KB."},
    Words{Refusal::addressTooLong, 414, "too_long", "The address of the request is too long."},
    Words{Refusal::notJson, 415, "not_json", "The request must be JSON."},
    Words{Refusal::packed, 415, "packed", "The request must not be compressed."},
    Words{Refusal::tooOften, 429, "too_often", "Too many explanations were asked for. Please wait"},
    Words{Refusal::headTooLong, 431, "too_long", "The header of the request is too long."},
    Words{Refusal::failed, 500, "failed", "Something went wrong in the AI service. Please try again later."},
    Words{Refusal::unknownMethod, 501, "unknown_method", "The method of the request is unknown."},
    Words{Refusal::busy, 503, "busy", "The AI service has too much to do at the moment. Please try again in a minute."},
    Words{Refusal::modelRefused, 502, "upstream_refused",
          "The AI service is not set up correctly. Please tell whoever runs it."},
    Words{Refusal::modelBusy, 502, "upstream_busy",
          "The AI model has too much to do at the moment. Please try again in a few minutes."},
    Words{Refusal::modelFailed, 502, "upstream_failed", "The AI model could not answer. Please try again later."},
    Words{Refusal::modelSilent, 502, "upstream_silent", "The AI model gave no answer that could be shown."},
    Words{Refusal::modelUnreachable, 502, "upstream_unreachable",
          "The AI model could not be reached. Please try again later."},
    Words{Refusal::modelLate, 504, "upstream_late", "The AI model took too long. Please try again later."},
};
static_assert(std::ranges::is_sorted(table, {}, &Words::reason) &&
              table.back().reason == static_cast<Refusal>(table.size() - 1));

} // namespace

Answer explanation(const QString &text)
{
    const GeminiContent content{.parts = {{text}}};
    const GeminiCandidate candidate{.content = content};
    return {.body = encode(GeminiGenerateResponse{.candidates = {candidate}})};
}

Answer refusal(Refusal reason, const QString &detail)
{
    const Words &words = table.at(static_cast<size_t>(reason));
    const QString error = QString::fromLatin1(words.error);
    const QString message = QString::fromLatin1(words.message) + (detail.isEmpty() ? QString() : u' ' + detail);
    return {.status = words.status,
            .body = encode(ProxyErrorResponse{.error = error, .message = message}),
            .error = words.error};
}

Answer tooOften(int seconds)
{
    const QString wait = QStringLiteral("%1 second%2 and try again.");
    Answer answer = refusal(Refusal::tooOften, wait.arg(seconds).arg(seconds == 1 ? QString() : QStringLiteral("s")));
    answer.retryAfter = seconds;
    return answer;
}

} // namespace tidlo::proxy
