#pragma once

#include "ai/TrustedCertificates.h"
#include "platform/MachineIdentity.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace tidlo {

/// Where explanations come from, how long they may take and be, and who asks. The defaults are the live values: the
/// host is fixed when the program is built, and nothing changes it later.
struct ExplainEndpoint
{
    QString host = builtInHost();                                   ///< A name, and a port where it is not 443.
    std::chrono::milliseconds timeLimit = std::chrono::seconds(60); ///< Of the whole exchange.
    qint64 replyLimit = 1024 * 1024;                                ///< Bytes of the reply's body.
    std::function<QByteArray()> authorities = trustedCertificates;  ///< Called on another thread.
    std::function<std::optional<QString>()> identity = machineIdentity;

    /// TIDLO_AI_PROXY_HOST as the program was built with it.
    static QString builtInHost();
};

} // namespace tidlo
