#pragma once

#include <QByteArray>
#include <QCoro/QCoroTask>
#include <QDeadlineTimer>
#include <QNetworkProxy>
#include <QSslConfiguration>
#include <QString>
#include <QUrl>

/// A header of a request: its name and its value.
using HttpHeader = std::pair<QByteArray, QByteArray>;

/// One request and the bounds of its reply.
struct HttpsRequest
{
    QUrl url; ///< Of the https scheme.
    QList<HttpHeader> headers;
    std::optional<QByteArray> body; ///< POSTed; without one, the request is a GET.
    QDeadlineTimer deadline;        ///< For the last byte of the reply.
    qint64 replyLimit = 0;          ///< Bytes of the reply's body, decompressed.
};

/// Through which proxy servers are reached, and how they are verified.
struct HttpsRoute
{
    QNetworkProxy proxy;
    QSslConfiguration certificates;
};

/// What came back: a complete reply or a failure.
struct HttpsReply
{
    int status = 0;  ///< 0 if there is none.
    QByteArray body; ///< Decompressed.
    QUrl redirect;   ///< Where the reply points to, absolute; empty if it does not redirect.
    QString failure; ///< Why there is no complete reply, for a person; empty when there is one.
};

/// Sends \a request and waits for the end of the reply. Called on the main thread, which it does not block: Qt moves
/// the bytes on a thread of its own. Nothing is cached, no cookie is kept or sent, no password is offered, no redirect
/// is followed and a POST is never sent twice. A reply that is cut short is a failure whatever its status. Quitting the
/// application ends the exchange.
QCoro::Task<HttpsReply> httpsExchange(HttpsRequest request, HttpsRoute route);
