#pragma once

#include "proxy/OrReason.h"
#include "proxy/Settings.h"

#include <QDateTime>

#include <memory>

#include <openssl/ssl.h>

namespace tidlo::proxy {

/// A key that only this user can read, and a self-signed certificate for localhost, in \a folder, which is made if it
/// is missing. Existing ones are used if they belong together and are valid for at least thirty days from \a now;
/// otherwise new ones are made, valid for a year. Neither file may be a link or anything other than a regular file.
OrReason<CertificateFiles> localhostCertificate(const QString &folder, const QDateTime &now);

/// A server context that proves its name with \a files, of 64 KB at most, which may be links: TLS 1.2 or newer.
OrReason<std::shared_ptr<SSL_CTX>> tlsFrom(const CertificateFiles &files);

/// A client context that trusts the system's certificate authorities, or those in the file that the environment names
/// as SSL_CERT_FILE. Each connection must ask for verification itself.
std::shared_ptr<SSL_CTX> tlsOfAClient();

} // namespace tidlo::proxy
