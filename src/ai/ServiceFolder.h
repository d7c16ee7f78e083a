#pragma once

#include "platform/Paths.h"

namespace tidlo {

// What tidlo-proxy and its clients on this machine agree on.

/// Where the service of a user whose home is \a home keeps its state, unless it is told a place. \a states is what
/// XDG_STATE_HOME says.
inline FilePath serviceFolder(const FilePath &home, const FilePath &states)
{
    return joined(folderInHome(home, ".local/state", states), "tidlo-proxy");
}

/// What the certificate that it makes for itself is called there.
inline constexpr const char *serviceCertificate = "certificate.pem";

} // namespace tidlo
