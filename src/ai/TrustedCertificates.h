#pragma once

#include "model/FilePath.h"

#include <QString>

namespace tidlo {

/// The certificate authorities with which servers are verified, as PEM: the system's, and those in the PEM file that
/// the environment variable SSL_CERT_FILE names, if it is set. A file that cannot be read adds nothing. Takes a tenth
/// of a second. May be called from any thread.
QByteArray trustedCertificates();

/// The certificate, as PEM, that the user's own tidlo-proxy stores in its state folder, to be trusted for requests to
/// \a host; empty unless that is "localhost", "127.0.0.1" or "::1". Also empty if the folder or the file is a link,
/// belongs to another user or can be written by another, or if the file is not a regular one of 64 KB at most. Every
/// call reads the file again. May be called from any thread.
QByteArray ownCertificateFor(const QString &host);

/// The state folder of the user's own tidlo-proxy, whether or not it exists.
FilePath ownServiceFolder();

} // namespace tidlo
