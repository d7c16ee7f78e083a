#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <atomic>
#include <memory>
#include <optional>
#include <utility>

#include <curl/curl.h>

namespace tidlo {

/// A header of a request: its name and its value.
using HttpHeader = std::pair<QByteArray, QByteArray>;

/// One request and the bounds of its reply.
struct HttpsRequest
{
    QUrl url; ///< Of the https scheme.
    QList<HttpHeader> headers;
    std::optional<QByteArray> body; ///< POSTed; without one, the request is a GET.
    qint64 replyLimit = 0;          ///< Bytes of the reply's body.
    QByteArray authorities{};       ///< The certificates that the server is verified against, as PEM.
    QByteArray proxy{};             ///< The proxy to go through: a URL of the http or socks5h scheme, empty for none.
};

/// What came back: a complete reply or a failure.
struct HttpsReply
{
    int status = 0; ///< 0 if there is none.
    QByteArray body;
    QUrl redirect;   ///< Where the reply points to, absolute; empty if it does not redirect.
    QString failure; ///< Why there is no complete reply, for a person; empty when there is one.
};

/// Sends requests, one at a time, from a thread that may wait, until another thread stops it.
class HttpsExchange final
{
public:
    /// Sends \a request, with its headers and those that HTTP needs, and waits for the end of the reply. Nothing is
    /// kept or reused, no password is offered to the server, no redirect is followed and a POST is never sent twice.
    /// Interim replies are passed over; the last of them is the reply if no other follows. A reply that is cut short,
    /// packed or larger than its limit is a failure whatever its status; so is one that comes with more than 256 KB
    /// around its body.
    HttpsReply perform(const HttpsRequest &request);

    /// Ends perform() at once, with a failure, and every later call of it as it begins. Any thread.
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
