#pragma once

#include "ai/TrustedCertificates.h"
#include "platform/MachineIdentity.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace tidlo {

/// Where explanations come from, how long they may take and be, and who asks. The defaults are the live values.
struct ExplainEndpoint
{
    QString host = liveHost(); ///< A name or address, and a port where it is not 443. Empty: nobody is asked.
    std::chrono::milliseconds timeLimit = std::chrono::seconds(60); ///< Of the whole exchange.
    qint64 replyLimit = qint64(1024) * 1024;                        ///< Bytes of the reply's body.
    std::function<QByteArray()> authorities = trustedCertificates;  ///< Called on another thread.
    std::function<std::optional<QString>()> identity = machineIdentity;

    /// Whether the host is the one that the program was built with, and that is this machine. Where nobody answers
    /// there, the program asks a service that it starts for itself.
    bool isOwn() const;

    /// The host that the environment variable TIDLO_AI_PROXY_HOST names, else the one that the program was built with.
    /// If the variable holds anything but a host, standard error says so once, and nobody is asked.
    static QString liveHost();

    /// The host that \a text names, "host" or "host:port"; nothing if it is neither. An empty text stays empty.
    static std::optional<QString> hostFrom(const QString &text);
};

} // namespace tidlo
