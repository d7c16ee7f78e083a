#pragma once

#include "platform/Paths.h"

namespace tidlo {

// The names that tidlo-proxy and its clients on this machine share.

/// The default folder for the state of the service of the user with the home folder \a home. \a states is the value of
/// XDG_STATE_HOME.
inline FilePath serviceFolder(const FilePath &home, const FilePath &states)
{
    return joined(folderInHome(home, ".local/state", states), "tidlo-proxy");
}

/// The name in that folder of the certificate that the service makes for itself.
inline constexpr const char *serviceCertificate = "certificate.pem";

} // namespace tidlo
