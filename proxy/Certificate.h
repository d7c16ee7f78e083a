#pragma once

#include "proxy/Settings.h"

#include <QDateTime>

#include <memory>

#include <openssl/ssl.h>

/// Something, or a sentence for a person that says why there is none.
template <typename Value>
struct OrReason
{
    Value value{};
    QString reason; ///< Empty if there is a value.
};

/// A key that this user alone can read, and a certificate for localhost that it signed itself, in \a folder, which is
/// made if need be. They are kept as long as they fit each other and hold for thirty days from \a now; else they are
/// made anew, for a year.
OrReason<CertificateFiles> localhostCertificate(const QString &folder, const QDateTime &now);

/// What a server needs to prove its name with \a files: TLS 1.2 or newer.
OrReason<std::shared_ptr<SSL_CTX>> tlsFrom(const CertificateFiles &files);
