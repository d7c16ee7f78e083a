#include "cli/PathArgument.h"

#include <QStringDecoder>

namespace tidlo {

namespace {

constexpr char16_t firstByte = 0xdc00; ///< Added to a byte that is not UTF-8, it gives the surrogate for it.

} // namespace

QString argumentText(QByteArrayView argument)
{
    QString text;
    while (!argument.isEmpty()) {
        qsizetype length = 1; // The length of the first valid character, at most four bytes.
        while (length < 4 && length < argument.size() && !argument.first(length).isValidUtf8())
            ++length;
        if (argument.first(length).isValidUtf8()) {
            text += QString::fromUtf8(argument.first(length));
        } else {
            length = 1;
            text += QChar(static_cast<char16_t>(firstByte + static_cast<unsigned char>(argument.front())));
        }
        argument = argument.sliced(length);
    }
    return text;
}

FilePath pathOfArgument(const QString &argument)
{
    FilePath path;
    for (qsizetype i = 0; i < argument.size(); ++i) {
        const QChar character = argument.at(i);
        const bool isPair =
            character.isHighSurrogate() && i + 1 < argument.size() && argument.at(i + 1).isLowSurrogate();
        if (character.isLowSurrogate())
            path.append(static_cast<char>(character.unicode() - firstByte));
        else
            path.append(argument.sliced(i, isPair ? 2 : 1).toUtf8());
        i += isPair ? 1 : 0;
    }
    return path;
}

} // namespace tidlo
