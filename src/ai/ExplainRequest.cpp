#include "ai/ExplainRequest.h"

#include "ai/GeminiRecords.h"
#include "ai/Prompt.h"

namespace tidlo {

namespace {

QByteArray bodyAbout(const QList<CleanupCandidate> &candidates)
{
    const GeminiPart part{.text = promptFor(candidates)};
    const GeminiContent content{.parts = {part}};
    return encode(GeminiGenerateRequest{.contents = {content}});
}

} // namespace

ExplainRequest explainRequest(const QList<CleanupCandidate> &candidates, const ExplainEndpoint &endpoint)
{
    const QString machine = endpoint.identity().value_or(unknownMachine);
    return {.host = endpoint.host,
            .path = "/explain",
            .headers = {{"Content-Type", "application/json"}, {"X-Device-UUID", machine.toUtf8()}},
            .body = bodyAbout(candidates)};
}

QByteArray textOf(const ExplainRequest &request)
{
    QByteArray text = "POST " + request.path + " HTTP/1.1\nHost: " + request.host.toUtf8() + '\n';
    for (const auto &[name, value] : request.headers)
        text += name + ": " + value + '\n';
    return text + "Content-Length: " + QByteArray::number(request.body.size()) + "\n\n" + request.body;
}

} // namespace tidlo
