#include "platform/linux/TrashRecord.h"

#include "platform/Descriptor.h"
#include "platform/linux/OpenFolder.h"

#include <QDateTime>

#include <algorithm>
#include <array>
#include <cerrno>

namespace tidlo {

namespace {

/// Nothing if a percent sign is not followed by two hexadecimal digits.
std::optional<QByteArray> percentDecoded(const QByteArray &text)
{
    for (qsizetype at = text.indexOf('%'); at >= 0; at = text.indexOf('%', at + 1)) {
        const QByteArray digits = text.mid(at + 1, 2);
        if (digits.size() < 2 || !std::ranges::all_of(digits, isxdigit))
            return std::nullopt;
    }
    return QByteArray::fromPercentEncoding(text);
}

/// Whether each component is a plain name, so that the path leads exactly where it says.
bool isPlain(const FilePath &path)
{
    const QList<FilePath> names = (path.startsWith('/') ? path.mid(1) : path).split('/');
    return !path.contains('\0') && std::ranges::none_of(names, [](const FilePath &name) {
        return name.isEmpty() || name == "." || name == "..";
    });
}

/// The whole content of \a file, which should have \a size bytes.
OrError<QByteArray> textOf(const SystemCalls &calls, int file, quint64 size)
{
    QByteArray text;
    std::array<char, 1 << 12> part;
    while (true) {
        const ssize_t got = calls.read(file, part.data(), part.size());
        if (got < 0)
            return Errno{errno};
        text.append(part.data(), got);
        if (text.size() > longestTrashRecord)
            return Errno{EFBIG};
        if (got == 0 || static_cast<quint64>(text.size()) == size)
            return text;
    }
}

} // namespace

QByteArray trashRecord(const FilePath &path, std::time_t moved)
{
    const QByteArray date = QDateTime::fromSecsSinceEpoch(moved).toString(Qt::ISODate).toLatin1();
    return "[Trash Info]\nPath=" + path.toPercentEncoding("/") + "\nDeletionDate=" + date + '\n';
}

FilePath trashRecordName(const FilePath &trashName)
{
    return trashName + trashRecordSuffix.data();
}

std::optional<TrashRecord> parsedTrashRecord(const QByteArray &text)
{
    QByteArray path;
    QByteArray date;
    const auto keep = [](QByteArray &value, const QByteArray &line, QByteArrayView key) {
        if (value.isEmpty() && line.startsWith(key)) // The first of several lines counts.
            value = line.mid(key.size());
    };
    bool isFirst = true;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype found = text.indexOf('\n', at);
        const qsizetype end = found < 0 ? text.size() : found;
        const QByteArray line = text.mid(at, end - at);
        if (std::exchange(isFirst, false) && line != "[Trash Info]")
            return std::nullopt;
        keep(path, line, "Path=");
        keep(date, line, "DeletionDate=");
        at = end + 1;
    }
    const std::optional<FilePath> decoded = percentDecoded(path);
    if (!decoded || !isPlain(*decoded))
        return std::nullopt;
    return TrashRecord{.path = *decoded, .date = date, .identity = {}};
}

OrError<TrashRecord> readTrashRecord(const SystemCalls &calls, int info, const FilePath &name)
{
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    Descriptor file(calls.openat(info, name.constData(), flags | O_NOATIME, 0));
    if (file.error() == EPERM) // Only the owner may use O_NOATIME.
        file = Descriptor(calls.openat(info, name.constData(), flags, 0));
    if (!file.isValid())
        return Errno{file.error()};
    struct statx status;
    if (calls.statx(file.get(), "", AT_EMPTY_PATH, STATX_TYPE | STATX_INO | STATX_SIZE | STATX_MTIME, &status) != 0)
        return Errno{errno};
    if (!S_ISREG(status.stx_mode))
        return Errno{EBADMSG};
    const OrError<QByteArray> text = textOf(calls, file.get(), status.stx_size);
    if (!text)
        return Errno{text.error()};
    std::optional<TrashRecord> record = parsedTrashRecord(*text);
    if (!record)
        return Errno{EBADMSG};
    record->written = fileTime(status.stx_mtime.tv_sec, status.stx_mtime.tv_nsec);
    record->identity = identityIn(status);
    return *record;
}

} // namespace tidlo
