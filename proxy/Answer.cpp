#include "proxy/Answer.h"

#include <algorithm>

Answer explanation(const QString &text)
{
    const GeminiContent content{.parts = {{text}}};
    const GeminiCandidate candidate{.content = content};
    return {.body = encode(GeminiGenerateResponse{.candidates = {candidate}})};
}

FailureWords wordsFor(int status, std::span<const FailureWords> table, const FailureWords &otherwise)
{
    const auto row = std::ranges::find(table, status, &FailureWords::status);
    return row == table.end() ? otherwise : *row;
}

Answer failure(int status, const char *error, const QString &message)
{
    return {.status = status,
            .body = encode(ProxyErrorResponse{.error = QString::fromLatin1(error), .message = message}),
            .error = error};
}
