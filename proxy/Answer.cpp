#include "proxy/Answer.h"

Answer explanation(const QString &text)
{
    const GeminiContent content{.parts = {{text}}};
    const GeminiCandidate candidate{.content = content};
    return {.body = encode(GeminiGenerateResponse{.candidates = {candidate}})};
}

Answer failure(int status, const char *error, const QString &message)
{
    return {.status = status,
            .body = encode(ProxyErrorResponse{.error = QString::fromLatin1(error), .message = message}),
            .error = error};
}
