#pragma once

#include "ai/TrustedCertificates.h"
#include "platform/MachineIdentity.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace tidlo {

/// The service that explains, the limits for its replies, and the identity of the client. The defaults are the live
/// values.
struct ExplainEndpoint
{
    QString host = liveHost(); ///< A name or address, and a port if it is not 443. Empty: nobody is asked.
    std::chrono::milliseconds timeLimit = std::chrono::seconds(60); ///< Of the whole exchange.
    qint64 replyLimit = qint64(1024) * 1024;                        ///< Bytes of the reply's body.
    std::function<QByteArray()> authorities = trustedCertificates;  ///< Called on another thread.
    std::function<std::optional<QString>()> identity = machineIdentity;

    /// Whether the host is the one that the program was built with, and is this machine. If no server answers there,
    /// the program starts a service for itself and asks that.
    bool isOwn() const;

    /// The host in the environment variable TIDLO_AI_PROXY_HOST, or else the one that the program was built with. If
    /// the value is not a host, a message on standard error says so once, and nobody is asked.
    static QString liveHost();

    /// The host in \a text, "host" or "host:port"; nothing if it is neither. An empty text stays empty.
    static std::optional<QString> hostFrom(const QString &text);
};

} // namespace tidlo
