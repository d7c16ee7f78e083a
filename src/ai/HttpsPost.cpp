#include "ai/HttpsPost.h"

#include "ai/TrustedCertificates.h"

#include <QCoro/QCoroFuture>
#include <QNetworkProxyQuery>
#include <QtConcurrentRun>

namespace {

constexpr int mostRedirects = 20;

/// Asking the system takes its time, so this runs on a thread of the pool.
HttpsRoute routeTo(const QUrl &url)
{
    const QList<QNetworkProxy> proxies = QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url));
    return {.proxy = proxies.value(0, QNetworkProxy::NoProxy), .certificates = trustedCertificates()};
}

bool isSameOrigin(const QUrl &left, const QUrl &right)
{
    constexpr int defaultPort = 443;
    return left.scheme() == right.scheme() && left.host() == right.host() &&
           left.port(defaultPort) == right.port(defaultPort);
}

/// The request that follows a redirect. Like everywhere, only 307 and 308 send the body again.
HttpsRequest redirected(HttpsRequest request, const HttpsReply &reply)
{
    request.url = reply.redirect;
    if (reply.status == 307 || reply.status == 308)
        return request;
    request.body.reset();
    request.headers.removeIf([](const HttpHeader &header) { return header.first == "Content-Type"; });
    return request;
}

} // namespace

QCoro::Task<HttpsReply> httpsPost(HttpsRequest request)
{
    const QFuture<HttpsRoute> found = QtConcurrent::run(routeTo, request.url);
    const HttpsRoute route = co_await found;
    for (int redirects = 0; redirects <= mostRedirects; ++redirects) {
        const HttpsReply reply = co_await httpsExchange(request, route);
        if (!reply.failure.isEmpty() || !isSameOrigin(reply.redirect, request.url))
            co_return reply;
        request = redirected(std::move(request), reply);
    }
    HttpsReply endless;
    endless.failure = QStringLiteral("There were too many redirects.");
    co_return endless;
}
