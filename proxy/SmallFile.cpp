#include "proxy/SmallFile.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tidlo::proxy {
namespace {

constexpr qint64 most = qint64(64) * 1024;

OrReason<std::optional<QByteArray>> cannot(const QString &name, const QString &why)
{
    return {.value = {}, .reason = QStringLiteral("%1 cannot be used: %2.").arg(name, why)};
}

} // namespace

OrReason<std::optional<QByteArray>> readSmallFile(const QString &name, Links links)
{
    const int noLinks = links == Links::refused ? O_NOFOLLOW : 0;
    const int descriptor = ::open(QFile::encodeName(name).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | noLinks);
    if (descriptor == -1 && (errno == ENOENT || errno == ENOTDIR))
        return {};
    if (descriptor == -1 && errno == ELOOP)
        return cannot(name, QStringLiteral("it is a link"));
    if (descriptor == -1)
        return cannot(name, QString::fromLocal8Bit(std::strerror(errno)));
    QFile file;
    file.open(descriptor, QFile::ReadOnly | QFile::Unbuffered, QFile::AutoCloseHandle);
    struct stat status
    {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return cannot(name, QStringLiteral("it is not a regular file"));
    QByteArray content = file.read(most + 1);
    if (content.size() > most)
        return cannot(name, QStringLiteral("it is larger than 64 KB"));
    return {.value = std::move(content), .reason = {}};
}

bool replaceFile(const QString &name, const QByteArray &content)
{
    const QByteArray final = QFile::encodeName(name);
    const QByteArray fresh = final + ".new";
    ::unlink(fresh.constData()); // Left behind by a process that was killed.
    const int descriptor = ::open(fresh.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor == -1)
        return false;
    QFile file;
    file.open(descriptor, QFile::WriteOnly | QFile::Unbuffered, QFile::AutoCloseHandle);
    const bool isWritten = file.write(content) == content.size() && ::fsync(descriptor) == 0;
    file.close();
    if (isWritten && std::rename(fresh.constData(), final.constData()) == 0)
        return true;
    ::unlink(fresh.constData());
    return false;
}

} // namespace tidlo::proxy
