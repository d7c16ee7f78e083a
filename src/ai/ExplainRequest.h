#pragma once

#include "ai/ExplainEndpoint.h"
#include "ai/HttpMessages.h"
#include "model/CleanupCandidate.h"

#include <QByteArray>

namespace tidlo {

/// The complete request for an explanation: everything that the service gets.
struct ExplainRequest
{
    QString host; ///< From ExplainEndpoint; empty: nothing is sent.
    QByteArray path;
    QList<HttpHeader> headers; ///< Without those that HTTP needs: the host, and the length of the body.
    QByteArray body;

    bool operator==(const ExplainRequest &) const = default;
};

/// Sent as the identifier of a machine that has none.
constexpr QLatin1StringView unknownMachine("mac-unknown");

/// The question about \a candidates, as it is sent to \a endpoint. Sends nothing.
ExplainRequest explainRequest(const QList<CleanupCandidate> &candidates, const ExplainEndpoint &endpoint = {});

/// The full text of \a request as it is sent, except that lines end with a line feed alone: the first line, all
/// headers, an empty line and the body.
QByteArray textOf(const ExplainRequest &request);

} // namespace tidlo
