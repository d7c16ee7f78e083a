#include "ai/TrustedCertificates.h"

#include <QFile>

namespace {

/// Read once, since it takes a tenth of a second.
const QList<QSslCertificate> &systemAuthorities()
{
    static const QList<QSslCertificate> authorities = QSslConfiguration::systemCaCertificates();
    return authorities;
}

} // namespace

QSslConfiguration trustedCertificates()
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPeerVerifyMode(QSslSocket::VerifyPeer);
    const QByteArray name = qgetenv("SSL_CERT_FILE");
    const QList<QSslCertificate> added =
        name.isEmpty() ? QList<QSslCertificate>() : QSslCertificate::fromPath(QFile::decodeName(name));
    // Naming authorities replaces those that are looked up on demand, so the system's are named too.
    if (!added.isEmpty())
        configuration.setCaCertificates(systemAuthorities() + added);
    return configuration;
}
