#include "ui/screens/ProxyStatus.h"

#include "ai/ExplainEndpoint.h"

#include <QUrl>

namespace tidlo {

QString ProxyStatus::sentence()
{
    QUrl proxy;
    proxy.setAuthority(ExplainEndpoint::liveHost());
    if (proxy.host().isEmpty())
        return nobody();
    return QStringLiteral("All AI requests are processed securely via %1. No local API key setup required.")
        .arg(proxy.host());
}

QString ProxyStatus::nobody()
{
    return QStringLiteral("Nobody is asked for explanations.");
}

} // namespace tidlo
