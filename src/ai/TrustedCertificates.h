#pragma once

#include <QByteArray>

namespace tidlo {

/// The certificate authorities that servers are verified against, as PEM: the system's, and those in the PEM file that
/// the environment names in SSL_CERT_FILE, if it does. A file that cannot be read adds nothing. Takes a tenth of a
/// second. May be called from any thread.
QByteArray trustedCertificates();

} // namespace tidlo
