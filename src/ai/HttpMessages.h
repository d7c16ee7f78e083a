#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <optional>
#include <utility>

namespace tidlo {

/// A header of a request: its name and its value.
using HttpHeader = std::pair<QByteArray, QByteArray>;

/// One request and the bounds of its reply.
struct HttpsRequest
{
    QUrl url; ///< With the https scheme.
    QList<HttpHeader> headers;
    std::optional<QByteArray> body; ///< Sent by POST; without a body, the request is a GET.
    qint64 replyLimit = 0;          ///< Bytes of the reply's body.
    QByteArray authorities{};       ///< The certificates that the server is verified against, as PEM.
    QByteArray proxy{};             ///< The proxy to go through: a URL of the http or socks5h scheme, empty for none.
};

/// The result: a complete reply or a failure.
struct HttpsReply
{
    int status = 0; ///< 0 if there is none.
    QByteArray body;
    QUrl redirect;   ///< The absolute target of a redirect; empty if the reply is none.
    QString failure; ///< Why there is no complete reply, for a person; empty if there is one.
};

} // namespace tidlo
