#include "ai/HttpsExchange.h"

#include "ai/OneTimeBody.h"

#include <QCoreApplication>
#include <QCoro/QCoroNetworkReply>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

#include <memory>

namespace {

/// Whether \a error only says what the status of a complete reply says already.
bool isToldByStatus(QNetworkReply::NetworkError error, int status)
{
    if (status >= 300 && status <= 399) // A redirect that asks for the body again, which is not Qt's to send.
        return error == QNetworkReply::ContentReSendError;
    return status >= 400 &&
           (error >= QNetworkReply::ContentAccessDenied || error == QNetworkReply::ProxyAuthenticationRequiredError);
}

/// Gathers the body of a reply, and ends it when it takes too long or grows too large. Belongs to the reply.
class BoundedReply final : public QObject
{
public:
    BoundedReply(QNetworkReply *watched, QDeadlineTimer deadline, qint64 limit)
        : QObject(watched)
        , reply(watched)
        , replyLimit(limit)
    {
        reply->setReadBufferSize(64 * 1024);
        connect(reply, &QNetworkReply::readyRead, this, &BoundedReply::gather);
        connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { end(QStringLiteral("The application quit.")); });
        QTimer::singleShot(std::chrono::milliseconds(deadline.remainingTime()), Qt::PreciseTimer, this,
                           [this] { end(QStringLiteral("The request timed out.")); });
    }

    /// What came back. To be called once, when the reply has finished.
    HttpsReply result()
    {
        gather();
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        const QNetworkReply::NetworkError error = reply->error();
        if (failure.isEmpty() && error == QNetworkReply::ContentReSendError && status == 0)
            failure = QStringLiteral("The connection was closed before an answer arrived.");
        if (failure.isEmpty() && error != QNetworkReply::NoError && !isToldByStatus(error, status))
            failure = reply->errorString();
        const QUrl target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
        return {.status = status,
                .body = body,
                .redirect = target.isEmpty() ? QUrl() : reply->url().resolved(target),
                .failure = failure};
    }

private:
    void gather()
    {
        if (!failure.isEmpty())
            return;
        body += reply->read(replyLimit + 1 - body.size()); // What is not read is not decompressed either.
        if (body.size() > replyLimit)
            end(QStringLiteral("The reply is too large."));
    }

    /// Finishes the reply, which resumes whoever waits for it.
    void end(const QString &reason)
    {
        if (failure.isEmpty())
            failure = reason;
        reply->abort();
    }

    QNetworkReply *reply;
    qint64 replyLimit;
    QByteArray body;
    QString failure;
};

QNetworkRequest networkRequest(const HttpsRequest &request, const QSslConfiguration &certificates)
{
    QNetworkRequest network(request.url);
    network.setSslConfiguration(certificates);
    network.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    network.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    network.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    for (const auto &[name, value] : request.headers)
        network.setRawHeader(name, value);
    return network;
}

QNetworkReply *send(QNetworkAccessManager &manager, const HttpsRequest &request, QNetworkRequest network)
{
    if (!request.body)
        return manager.get(network);
    network.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    network.setHeader(QNetworkRequest::ContentLengthHeader, request.body->size());
    auto *body = new OneTimeBody(*request.body);
    QNetworkReply *reply = manager.post(network, body);
    body->setParent(reply);
    return reply;
}

struct LaterDeleter
{
    void operator()(QObject *object) const { object->deleteLater(); }
};

} // namespace

QCoro::Task<HttpsReply> httpsExchange(HttpsRequest request, HttpsRoute route)
{
    // A manager for one exchange alone keeps no cookie, no password and no connection. The wait below ends inside a
    // signal of the reply, which must live until it returns.
    const std::unique_ptr<QNetworkAccessManager, LaterDeleter> manager(new QNetworkAccessManager);
    manager->setProxy(route.proxy);
    QNetworkReply *reply = send(*manager, request, networkRequest(request, route.certificates));
    auto *bounded = new BoundedReply(reply, request.deadline, request.replyLimit);
    co_await reply;
    co_return bounded->result();
}
