#include "ai/HttpsPost.h"

#include <QNetworkProxyFactory>

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

constexpr int mostRedirects = 20;
constexpr std::array redirects{301, 302, 303, 307, 308};

/// Empty for no proxy, which Qt always returns for this machine, whatever the system's settings.
QByteArray proxyTo(const QUrl &url)
{
    const QNetworkProxy proxy = QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url)).value(0);
    QUrl address;
    if (proxy.type() == QNetworkProxy::HttpProxy || proxy.type() == QNetworkProxy::HttpCachingProxy)
        address.setScheme(QStringLiteral("http"));
    else if (proxy.type() == QNetworkProxy::Socks5Proxy)
        address.setScheme(QStringLiteral("socks5h"));
    else
        return {};
    address.setHost(proxy.hostName());
    address.setPort(proxy.port());
    address.setUserName(proxy.user());
    address.setPassword(proxy.password());
    return address.toEncoded();
}

bool isSameOrigin(const QUrl &left, const QUrl &right)
{
    constexpr int defaultPort = 443;
    return left.scheme() == right.scheme() && left.host() == right.host() &&
           left.port(defaultPort) == right.port(defaultPort);
}

bool isToBeFollowed(const HttpsReply &reply, const QUrl &url)
{
    return reply.failure.isEmpty() && std::ranges::find(redirects, reply.status) != redirects.end() &&
           isSameOrigin(reply.redirect, url);
}

/// The request that follows a redirect. As usual, only 307 and 308 send the body again.
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

HttpsReply httpsPost(HttpsRequest request, HttpsExchange &exchange)
{
    request.proxy = proxyTo(request.url);
    for (int count = 0; count <= mostRedirects; ++count) {
        HttpsReply reply = exchange.perform(request);
        if (!isToBeFollowed(reply, request.url))
            return reply;
        request = redirected(std::move(request), reply);
    }
    HttpsReply endless;
    endless.failure = QStringLiteral("There were too many redirects.");
    return endless;
}

} // namespace tidlo
