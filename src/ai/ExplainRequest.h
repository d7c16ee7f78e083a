#pragma once

#include "ai/ExplainEndpoint.h"
#include "model/CleanupCandidate.h"

#include <QByteArray>

#include <utility>

namespace tidlo {

/// What is sent to have findings explained: everything that the other end gets.
struct ExplainRequest
{
    using Header = std::pair<QByteArray, QByteArray>; ///< Its name and its value.

    QString host; ///< As ExplainEndpoint has it; empty: nothing is sent.
    QByteArray path;
    QList<Header> headers; ///< Besides those that HTTP needs: the host, and the length of the body.
    QByteArray body;

    bool operator==(const ExplainRequest &) const = default;
};

/// What stands for the identifier of a machine that has none.
constexpr QLatin1StringView unknownMachine("mac-unknown");

/// The question about \a candidates, as it is put to \a endpoint. Sends nothing.
ExplainRequest explainRequest(const QList<CleanupCandidate> &candidates, const ExplainEndpoint &endpoint = {});

/// All of \a request as it goes out, but that its lines end with a line feed alone: the first line, every header, an
/// empty line and the body.
QByteArray textOf(const ExplainRequest &request);

} // namespace tidlo
