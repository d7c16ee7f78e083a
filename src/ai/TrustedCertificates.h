#pragma once

#include <QByteArray>

namespace tidlo {

/// The certificate authorities with which servers are verified, as PEM: the system's, and those in the PEM file that
/// the environment variable SSL_CERT_FILE names, if it is set. A file that cannot be read adds nothing. Takes a tenth
/// of a second. May be called from any thread.
QByteArray trustedCertificates();

} // namespace tidlo
