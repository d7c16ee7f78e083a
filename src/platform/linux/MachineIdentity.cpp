#include "platform/MachineIdentity.h"

#include "platform/linux/MachineIdFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QMessageAuthenticationCode>

#include <algorithm>

namespace tidlo {

namespace {

// Changing it changes every machine's identifier.
constexpr QUuid application{0x7be71096, 0x395a, 0x4663, 0xb8, 0x81, 0x94, 0x20, 0x95, 0xe2, 0x4f, 0x4c};

bool isHexDigit(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
           (character >= 'A' && character <= 'F');
}

/// The 16 bytes of a machine-id, empty if \a file holds none.
QByteArray machineId(const FilePath &file)
{
    constexpr qsizetype digits = 32;
    QFile source(QFile::decodeName(file));
    if (!source.open(QIODevice::ReadOnly))
        return {};
    QByteArray text = source.read(digits + 2); // One more than allowed, so that a longer text is noticed.
    if (text.endsWith('\n'))
        text.chop(1);
    if (text.size() != digits || !std::ranges::all_of(text, isHexDigit))
        return {};
    const QByteArray id = QByteArray::fromHex(text);
    return id.count('\0') == id.size() ? QByteArray() : id;
}

/// The first 16 bytes of a hash, marked as a random UUID.
QUuid asUuid(QByteArray hash)
{
    hash.truncate(16);
    hash[6] = static_cast<char>((hash[6] & 0x0f) | 0x40);
    hash[8] = static_cast<char>((hash[8] & 0x3f) | 0x80);
    return QUuid::fromRfc4122(hash);
}

} // namespace

std::optional<QUuid> applicationMachineId(const QList<FilePath> &files)
{
    for (const FilePath &file : files) {
        const QByteArray key = machineId(file);
        if (!key.isEmpty())
            return asUuid(QMessageAuthenticationCode::hash(application.toRfc4122(), key, QCryptographicHash::Sha256));
    }
    return std::nullopt;
}

std::optional<QString> machineIdentity()
{
    const std::optional<QUuid> id = applicationMachineId({"/etc/machine-id", "/var/lib/dbus/machine-id"});
    return id ? std::optional(id->toString(QUuid::WithoutBraces).toUpper()) : std::nullopt;
}

} // namespace tidlo
