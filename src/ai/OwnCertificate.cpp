#include "ai/OwnCertificate.h"

#include "ai/ServiceFolder.h"
#include "platform/HomeFolder.h"
#include "platform/SmallFile.h"

#include <QSslCertificate>

#include <algorithm>
#include <array>

#include <sys/stat.h>

namespace tidlo {

namespace {

constexpr std::array ownHosts{u"localhost", u"127.0.0.1", u"::1"};

/// Whether only this user can change \a opened.
bool isOwn(const Descriptor &opened)
{
    struct stat status = {};
    return opened.isValid() && fstat(opened.get(), &status) == 0 && status.st_uid == geteuid() &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

} // namespace

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
    QByteArray pem;
    for (const QSslCertificate &certificate : QSslCertificate::fromData(*content))
        pem += certificate.toPem();
    return pem;
}

} // namespace tidlo
