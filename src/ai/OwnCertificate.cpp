#include "ai/OwnCertificate.h"

#include "platform/Descriptor.h"
#include "platform/HomeFolder.h"
#include "platform/Paths.h"

#include <QFile>
#include <QSslCertificate>

#include <algorithm>
#include <array>

#include <sys/stat.h>

namespace tidlo {

namespace {

constexpr std::array ownHosts{u"localhost", u"127.0.0.1", u"::1"};
constexpr qint64 most = qint64(64) * 1024;

/// Whether what is open is of the kind \a kind, and nobody but this user can change it.
bool isOwn(const Descriptor &opened, mode_t kind)
{
    struct stat status = {};
    return opened.isValid() && fstat(opened.get(), &status) == 0 && (status.st_mode & S_IFMT) == kind &&
           status.st_uid == geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

} // namespace

FilePath ownServiceFolder()
{
    const FilePath states = qgetenv("XDG_STATE_HOME");
    return joined(states.startsWith('/') ? states : joined(homeFolder(), ".local/state"), "tidlo-proxy");
}

QByteArray ownCertificateFor(const QString &host)
{
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    if (std::ranges::none_of(ownHosts, [&host](QStringView own) { return host == own; }))
        return {};
    const Descriptor folder(open(ownServiceFolder().constData(), flags | O_DIRECTORY));
    if (!isOwn(folder, S_IFDIR))
        return {};
    const Descriptor descriptor(openat(folder.get(), "certificate.pem", flags));
    QFile file;
    if (!isOwn(descriptor, S_IFREG) || !file.open(descriptor.get(), QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    const QByteArray content = file.read(most + 1);
    QByteArray pem;
    if (content.size() <= most) {
        for (const QSslCertificate &certificate : QSslCertificate::fromData(content))
            pem += certificate.toPem();
    }
    return pem;
}

} // namespace tidlo
