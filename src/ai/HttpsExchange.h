#pragma once

#include "ai/HttpHeader.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <atomic>
#include <memory>
#include <optional>

#include <curl/curl.h>

namespace tidlo {

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

/// Sends requests, one at a time, on a thread that may block, until another thread stops it.
class HttpsExchange final
{
public:
    /// Sends \a request, with its headers and those that HTTP needs, and waits for the end of the reply. No connection
    /// is kept or reused, no password is offered to the server, no redirect is followed and a POST is never sent twice.
    /// Interim replies are skipped; the last of them is the reply if no other follows. A reply that is cut short,
    /// compressed or larger than its limit is a failure whatever its status; so is one with more than 256 KB in
    /// addition to its body.
    HttpsReply perform(const HttpsRequest &request);

    /// Ends perform() at once with a failure, and makes every later call fail at its start. Any thread.
    void stop();

private:
    struct Release
    {
        void operator()(CURLM *handle) const { curl_multi_cleanup(handle); }
    };

    std::unique_ptr<CURLM, Release> multi{curl_multi_init()};
    std::atomic<bool> stopped = false;
};

} // namespace tidlo
