#include "platform/VisibleText.h"

#include <algorithm>
#include <array>
#include <bit>

namespace tidlo {

namespace {

struct CodePointRange
{
    char32_t first;
    char32_t last;
};

// Characters that Unicode counts as printable but that are invisible.
constexpr std::array drawnAsNothing{
    CodePointRange{0x034f, 0x034f},   // Combining grapheme joiner
    CodePointRange{0x115f, 0x1160},   // Hangul fillers
    CodePointRange{0x17b4, 0x17b5},   // Khmer inherent vowels
    CodePointRange{0x180b, 0x180f},   // Mongolian variation selectors
    CodePointRange{0x2800, 0x2800},   // Braille blank
    CodePointRange{0x3164, 0x3164},   // Hangul filler
    CodePointRange{0xffa0, 0xffa0},   // Hangul filler, half width
    CodePointRange{0xe0000, 0xe0fff}, // Tags and supplementary variation selectors
};

bool isVisible(char32_t character)
{
    const bool separator = character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
    return QChar::isPrint(character) && !separator &&
           std::ranges::none_of(drawnAsNothing, [character](const CodePointRange &range) {
               return range.first <= character && character <= range.last;
           });
}

QString hexadecimal(const char *prefix, char32_t number, int digits)
{
    return QLatin1StringView(prefix) + QString::number(number, 16).rightJustified(digits, QLatin1Char('0'));
}

QString escape(char32_t character)
{
    switch (character) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    case '\\':
        return QStringLiteral("\\\\");
    default:
        break;
    }
    if (character < 0x80)
        return hexadecimal("\\x", character, 2);
    return character < 0x10000 ? hexadecimal("\\u", character, 4) : hexadecimal("\\U", character, 8);
}

constexpr bool isPlain(char32_t character)
{
    return character >= 0x20 && character < 0x7f && character != '\\';
}

void append(QString &text, char32_t character)
{
    if (isPlain(character))
        text += QChar(static_cast<char16_t>(character));
    else if (character == '\\' || !isVisible(character))
        text += escape(character);
    else
        text += QChar::fromUcs4(character);
}

/// The bytes of the first character of \a bytes, which are not empty; none if it is not valid.
QByteArrayView firstCharacter(QByteArrayView bytes)
{
    const int ones = std::countl_one(static_cast<unsigned char>(bytes.front()));
    const QByteArrayView character = bytes.first(std::min<qsizetype>(std::max(ones, 1), bytes.size()));
    return character.isValidUtf8() ? character : QByteArrayView();
}

/// QString::fromUtf8 would drop a byte order mark.
char32_t decoded(QByteArrayView character)
{
    const auto lead = static_cast<unsigned char>(character.front());
    char32_t codePoint = lead & (0x7f >> std::countl_one(lead));
    for (const char next : character.sliced(1))
        codePoint = codePoint << 6 | (static_cast<unsigned char>(next) & 0x3f);
    return codePoint;
}

} // namespace

QString visibleText(const FilePath &path)
{
    QString result;
    result.reserve(path.size());
    for (QByteArrayView rest = path; !rest.isEmpty();) {
        const QByteArrayView character = firstCharacter(rest);
        if (character.isEmpty())
            result += hexadecimal("\\x", static_cast<unsigned char>(rest.front()), 2);
        else
            append(result, decoded(character));
        rest = rest.sliced(std::max<qsizetype>(character.size(), 1));
    }
    return result;
}

QString visibleText(const QString &text)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        if (unit == u'\n' || unit == u'\t')
            result += unit;
        else if (unit.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            append(result, QChar::surrogateToUcs4(unit, text[++i]));
        else
            append(result, unit.unicode());
    }
    return result;
}

} // namespace tidlo
