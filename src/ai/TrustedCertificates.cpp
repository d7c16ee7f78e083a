#include "ai/TrustedCertificates.h"

#include "ai/ServiceFolder.h"
#include "platform/HomeFolder.h"
#include "platform/SmallFile.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>

#include <algorithm>
#include <array>

#include <sys/stat.h>

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

constexpr std::array ownHosts{u"localhost", u"127.0.0.1", u"::1"};

/// Whether only this user can change \a opened.
bool isOwn(const Descriptor &opened)
{
    struct stat status = {};
    return opened.isValid() && fstat(opened.get(), &status) == 0 && status.st_uid == geteuid() &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

} // namespace

QByteArray trustedCertificates()
{
    const QByteArray name = qgetenv("SSL_CERT_FILE");
    if (name.isEmpty())
        return systemAuthorities();
    return systemAuthorities() + asPem(QSslCertificate::fromPath(QFile::decodeName(name)));
}

FilePath ownServiceFolder()
{
    return serviceFolder(homeFolder(), qgetenv("XDG_STATE_HOME"));
}

QByteArray ownCertificateFor(const QString &host)
{
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    if (std::ranges::none_of(ownHosts, [&host](QStringView own) { return host == own; }))
        return {};
    const Descriptor folder(open(ownServiceFolder().constData(), flags | O_DIRECTORY));
    if (!isOwn(folder))
        return {};
    const Descriptor descriptor(openat(folder.get(), serviceCertificate, flags));
    const OrError<QByteArray> content = readSmallFile(descriptor);
    if (!isOwn(descriptor) || !content)
        return {};
    return asPem(QSslCertificate::fromData(*content));
}

} // namespace tidlo
