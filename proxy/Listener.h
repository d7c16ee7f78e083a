#pragma once

#include "proxy/Asio.h"
#include "proxy/OrReason.h"
#include "proxy/Settings.h"

#include <optional>

namespace tidlo::proxy {

/// A socket that listens, as \a settings say: where they name an address and a port, or the one that was handed over as
/// descriptor 3. Its connections run on \a loop.
OrReason<std::optional<tcp::acceptor>> listenAs(const Settings &settings, asio::io_context &loop);

} // namespace tidlo::proxy
