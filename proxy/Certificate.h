#pragma once

#include "proxy/OrReason.h"
#include "proxy/Settings.h"

#include <QDateTime>

#include <memory>

#include <openssl/ssl.h>

namespace tidlo::proxy {

/// A key that this user alone can read, and a certificate for localhost that it signed itself, in \a folder, which is
/// made if need be. They are kept as long as they fit each other and hold for thirty days from \a now; else they are
/// made anew, for a year. Neither may be a link or anything else but a regular file.
OrReason<CertificateFiles> localhostCertificate(const QString &folder, const QDateTime &now);

/// What a server needs to prove its name with \a files, of 64 KB at most, which may be links: TLS 1.2 or newer.
OrReason<std::shared_ptr<SSL_CTX>> tlsFrom(const CertificateFiles &files);

/// What a client needs that trusts the system's certificate authorities, or those in the file that the environment
/// names as SSL_CERT_FILE. Verifying is for each connection to ask.
std::shared_ptr<SSL_CTX> tlsOfAClient();

} // namespace tidlo::proxy
