#pragma once

#include "model/FilePath.h"

#include <QString>

namespace tidlo {

/// The certificate authorities with which servers are verified, as PEM: the system's, and those in the PEM file that
/// the environment variable SSL_CERT_FILE names, if it is set. A file that cannot be read adds nothing. Takes a tenth
/// of a second. May be called from any thread.
QByteArray trustedCertificates();

/// The certificate, as PEM, that the user's own tidlo-proxy keeps in its state folder, to be trusted by whoever asks
/// \a host; empty unless that is "localhost", "127.0.0.1" or "::1". So it is where the folder or the file is a link,
/// is another user's or can be written by another, or where the file is no regular one of 64 KB at most. Read anew by
/// every call, on any thread.
QByteArray ownCertificateFor(const QString &host);

/// The state folder of the user's own tidlo-proxy, whether or not it is there.
FilePath ownServiceFolder();

} // namespace tidlo
