#include "ai/TrustedCertificates.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>

namespace tidlo {

namespace {

QByteArray asPem(const QList<QSslCertificate> &certificates)
{
    QByteArray pem;
    for (const QSslCertificate &certificate : certificates)
        pem += certificate.toPem();
    return pem;
}

/// Read once, since it takes a tenth of a second.
const QByteArray &systemAuthorities()
{
    static const QByteArray authorities = asPem(QSslConfiguration::systemCaCertificates());
    return authorities;
}

} // namespace

QByteArray trustedCertificates()
{
    const QByteArray name = qgetenv("SSL_CERT_FILE");
    if (name.isEmpty())
        return systemAuthorities();
    return systemAuthorities() + asPem(QSslCertificate::fromPath(QFile::decodeName(name)));
}

} // namespace tidlo
