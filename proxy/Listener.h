#pragma once

#include "proxy/Asio.h"
#include "proxy/OrReason.h"
#include "proxy/Settings.h"

#include <optional>

namespace tidlo::proxy {

/// The listening socket that \a settings describe: on an address and a port, or the one that was passed to this process
/// as descriptor 3. Its connections run on \a loop.
OrReason<std::optional<tcp::acceptor>> listenAs(const Settings &settings, asio::io_context &loop);

} // namespace tidlo::proxy
