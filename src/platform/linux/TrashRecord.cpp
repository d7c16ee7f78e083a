#include "platform/linux/TrashRecord.h"

#include <QDateTime>

#include <algorithm>

namespace tidlo {

namespace {

constexpr QLatin1StringView recordSuffix(".trashinfo");
constexpr qsizetype longestExtension = 32; ///< Longer ones are no kind of file, they are just a dot in a name.

/// Where the extension begins, dot included: at the end when there is none.
qsizetype extensionStart(const FilePath &name)
{
    const qsizetype dot = name.lastIndexOf('.');
    return dot <= 0 || name.size() - dot > longestExtension ? name.size() : dot;
}

/// At most \a size bytes of \a text, that do not end within a character of UTF-8.
FilePath cut(const FilePath &text, qsizetype size)
{
    if (text.size() <= size)
        return text;
    constexpr qsizetype longestCharacter = 4;
    for (qsizetype end = size; end > size - longestCharacter && end > 0; --end) {
        const bool continuesCharacter = (static_cast<unsigned char>(text.at(end)) & 0xc0) == 0x80;
        if (!continuesCharacter)
            return text.left(end);
    }
    return text.left(size); // No UTF-8 at all.
}

} // namespace

QByteArray trashRecord(const FilePath &path, std::time_t moved)
{
    const QByteArray date = QDateTime::fromSecsSinceEpoch(moved).toString(Qt::ISODate).toLatin1();
    return "[Trash Info]\nPath=" + path.toPercentEncoding("/") + "\nDeletionDate=" + date + '\n';
}

FilePath trashRecordName(const FilePath &trashName)
{
    return trashName + recordSuffix.data();
}

FilePath trashName(const FilePath &name, quint32 number, qsizetype limit)
{
    const qsizetype dot = extensionStart(name);
    const FilePath ending = (number > 1 ? ' ' + QByteArray::number(number) : QByteArray()) + name.mid(dot);
    const qsizetype room = limit - recordSuffix.size() - ending.size();
    return cut(name.left(dot), std::max<qsizetype>(room, 1)) + ending;
}

} // namespace tidlo
