#include "ai/ExplainEndpoint.h"

#include "ai/OwnService.h"
#include "platform/VisibleText.h"

#include <QUrl>

#include <cstdio>

namespace tidlo {

namespace {

constexpr const char *variable = "TIDLO_AI_PROXY_HOST";

QString hostOfEnvironment()
{
    const QString named = qEnvironmentVariable(variable);
    const std::optional<QString> host = ExplainEndpoint::hostFrom(named);
    if (!host)
        std::fprintf(stderr, "%s is not a host, so nobody is asked: %s\n", variable,
                     qUtf8Printable(visibleText(named)));
    return host.value_or(QString());
}

} // namespace

QString ExplainEndpoint::liveHost()
{
    if (!qEnvironmentVariableIsSet(variable))
        return QStringLiteral(TIDLO_AI_PROXY_HOST);
    static const QString host = hostOfEnvironment();
    return host;
}

bool ExplainEndpoint::isOwn() const
{
    return host == QStringLiteral(TIDLO_AI_PROXY_HOST) && isThisMachine(host);
}

std::optional<QString> ExplainEndpoint::hostFrom(const QString &text)
{
    QUrl url;
    url.setScheme(QStringLiteral("https"));
    url.setAuthority(text, QUrl::StrictMode);
    const bool isHost = url.isValid() && url.userInfo().isEmpty() && !url.authority().contains(u'@');
    if (!isHost || (url.host().isEmpty() && !text.isEmpty()) || url.port() == 0)
        return std::nullopt;
    return url.authority();
}

} // namespace tidlo
