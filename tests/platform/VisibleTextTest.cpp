#include "platform/VisibleText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

namespace tidlo {

struct VisibleRow
{
    const char *given;
    const char *shown;
};

static std::string shownPath(const FilePath &path)
{
    return visibleText(path).toStdString();
}

static std::string shownText(const QString &text)
{
    return visibleText(text).toStdString();
}

TEST(VisibleText, WhatIsPrintableStaysAsItIs)
{
    constexpr const char *names[]{
        "",
        "/home/ada/Sites/app/node_modules",
        " a  name with spaces ",
        "~!@#$%^&*()_+-=[]{}|;':\",./<>?`",
        "Grüße",
        "Gru\u0308\u00dfe", // A combining mark is not escaped.
        "日本語",
        "עברית", // Right-to-left letters are not escaped.
        "😀",
        "❤️", // With the variation selector that makes it an emoji.
        "\u00a0no-break space",
        "\ufffd",
    };
    for (const char *name : names) {
        EXPECT_EQ(shownPath(name), name);
        EXPECT_EQ(shownText(QString::fromUtf8(name)), name);
    }
}

TEST(VisibleText, WhatCouldMoveTheCursorOrHideOrTurnTextIsAnEscape)
{
    constexpr VisibleRow rows[]{
        {"\a\b\v\f\r", "\\x07\\x08\\x0b\\x0c\\r"},
        {"\x1b[31mred\x1b[0m", "\\x1b[31mred\\x1b[0m"},
        {"\x7f", "\\x7f"},
        {"\u0080\u0085\u009b31m\u009f", "\\u0080\\u0085\\u009b31m\\u009f"},
        {"\u200e\u200f\u061c", "\\u200e\\u200f\\u061c"},
        {"photo\u202egnp.exe", "photo\\u202egnp.exe"},
        {"\u202a\u202b\u202c\u202d\u202e", "\\u202a\\u202b\\u202c\\u202d\\u202e"},
        {"\u2066\u2067\u2068\u2069", "\\u2066\\u2067\\u2068\\u2069"},
        {"\u200b\u200c\u200d\u2060\ufeff", "\\u200b\\u200c\\u200d\\u2060\\ufeff"},
        {"\ufeffname", "\\ufeffname"},
        {"\u00ad", "\\u00ad"}, // Soft hyphen
        {"\u2028\u2029", "\\u2028\\u2029"},
        {"\U000e0001\U000e0041\U000e007f", "\\U000e0001\\U000e0041\\U000e007f"}, // Tags
        {"\U000e0100", "\\U000e0100"},
        {"\u034f\u115f\u1160\u17b4\u180e\u2800\u3164\uffa0",
         "\\u034f\\u115f\\u1160\\u17b4\\u180e\\u2800\\u3164\\uffa0"},
        {"\ue000\uf8ff\U0010fffd", "\\ue000\\uf8ff\\U0010fffd"}, // Private use
        {"\u0378\uffff\U0001fffe", "\\u0378\\uffff\\U0001fffe"}, // Not assigned
        {"a\\nb", "a\\\\nb"},
    };
    for (const VisibleRow &row : rows) {
        EXPECT_EQ(shownPath(row.given), row.shown);
        EXPECT_EQ(shownText(QString::fromUtf8('x' + QByteArray(row.given))), 'x' + std::string(row.shown));
    }
}

TEST(VisibleText, EveryControlCharacterOfANameIsAnEscape)
{
    for (int byte = 0; byte < 0x20; ++byte) {
        const std::string shown = shownPath(FilePath(1, static_cast<char>(byte)));
        EXPECT_EQ(shown.front(), '\\') << byte;
    }
    EXPECT_EQ(shownPath(FilePath("\0", 1)), "\\x00");
    EXPECT_EQ(shownPath("two\nlines\tand a tab"), "two\\nlines\\tand a tab");
}

TEST(VisibleText, ATextKeepsItsLinesAndTabs)
{
    EXPECT_EQ(shownText(QStringLiteral("two\nlines\tand a tab")), "two\nlines\tand a tab");
    EXPECT_EQ(shownText(QStringLiteral("over\rwritten")), "over\\rwritten");
}

TEST(VisibleText, BytesThatAreNotValidUtf8AreShownOneByOne)
{
    constexpr VisibleRow rows[]{
        {"\xff", "\\xff"},
        {"caf\xe9", "caf\\xe9"},
        {"\x80tail", "\\x80tail"},                    // A continuation byte without a beginning
        {"\xe2\x82", "\\xe2\\x82"},                   // Cut off at the end
        {"\xe2\x82z", "\\xe2\\x82z"},                 // Cut off in the middle
        {"\xc0\xaf", "\\xc0\\xaf"},                   // A slash in an overlong encoding
        {"\xed\xa0\x80", "\\xed\\xa0\\x80"},          // A surrogate
        {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"}, // Beyond Unicode
        {"\xf8\x88\x80\x80\x80", "\\xf8\\x88\\x80\\x80\\x80"},
        {"\xff\xc3\xa9\xff", "\\xff\u00e9\\xff"},
    };
    for (const VisibleRow &row : rows)
        EXPECT_EQ(shownPath(row.given), row.shown);
}

TEST(VisibleText, NothingIsReadBeyondTheEndOfAPathThatCutsOffACharacter)
{
    for (const FilePath character : {"é", "€", "😀"}) {
        for (qsizetype size = 1; size < character.size(); ++size) {
            const FilePath path =
                FilePath::fromRawData(character.constData(), size); // The rest of the character is in memory after it.
            EXPECT_EQ(shownPath(path), "\\x" + path.toHex(' ').replace(" ", "\\x").toStdString());
        }
    }
}

TEST(VisibleText, LoneSurrogatesOfATextAreEscapes)
{
    EXPECT_EQ(shownText(QString(QChar(0xd800))), "\\ud800");
    EXPECT_EQ(shownText(QString(QChar(0xdc00)) + QChar(0xd800)), "\\udc00\\ud800");
    EXPECT_EQ(shownText(QString(QChar(0xd83d)) + u'x'), "\\ud83dx");
}

/// Undoes the escapes of a path.
static FilePath unescaped(const QString &shown)
{
    const QByteArray text = shown.toUtf8();
    FilePath path;
    for (qsizetype i = 0; i < text.size();) {
        const auto number = [&](int digits) { return text.mid(i + 2, digits).toUInt(nullptr, 16); };
        const auto character = [&](int digits) {
            const char32_t codePoint = number(digits);
            return QString::fromUcs4(&codePoint, 1).toUtf8();
        };
        const char kind = text[i] == '\\' ? text[i + 1] : '\0';
        switch (kind) {
        case '\\':
            path += '\\', i += 2;
            break;
        case 'n':
            path += '\n', i += 2;
            break;
        case 'r':
            path += '\r', i += 2;
            break;
        case 't':
            path += '\t', i += 2;
            break;
        case 'x':
            path += static_cast<char>(number(2)), i += 4;
            break;
        case 'u':
            path += character(4), i += 6;
            break;
        case 'U':
            path += character(8), i += 10;
            break;
        default:
            path += text[i], i += 1;
            break;
        }
    }
    return path;
}

TEST(VisibleText, DifferentNamesAreShownDifferentlySinceEscapesCanBeUndone)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> pieces(0, 5);
    std::uniform_int_distribution<int> bytes(0, 255);
    std::uniform_int_distribution<std::uint32_t> codePoints(0, 0x10ffff);
    for (int round = 0; round < 20'000; ++round) {
        FilePath name;
        for (int i = 0; i < 12; ++i) {
            const char32_t codePoint = codePoints(random);
            const bool isSurrogate = QChar::isSurrogate(codePoint);
            switch (isSurrogate ? 0 : pieces(random)) {
            case 0:
                name += static_cast<char>(bytes(random));
                break;
            case 1:
                name += '\\';
                break;
            case 2:
                name += "nrtxuU"[codePoint % 6];
                break;
            default:
                name += QString::fromUcs4(&codePoint, 1).toUtf8();
                break;
            }
        }
        const QString shown = visibleText(name);
        ASSERT_EQ(unescaped(shown), name) << name.toHex().constData();
        // Only the backslashes are left to escape.
        ASSERT_EQ(visibleText(shown), QString(shown).replace(u'\\', QStringLiteral("\\\\")));
    }
}

TEST(VisibleText, ReadsNothingBeyondACharacterThatIsCutOff)
{
    const QByteArray beyond("\xe2\x82\xac \xf0\x9f\x98\x80 \xc3\xa9"); // With the bytes that follow, it would be
                                                                       // complete.
    for (const qsizetype start : {0, 4, 9}) {
        const FilePath cut = FilePath::fromRawData(beyond.constData() + start, 1);
        EXPECT_EQ(unescaped(visibleText(cut)), cut);
        EXPECT_EQ(visibleText(cut).size(), 4);
    }
    for (const QByteArrayView cut : {"\xe2", "\xe2\x82", "\xf0\x9f\x98", "a\xc3"}) {
        const std::vector<char> exact(cut.begin(), cut.end()); // Nothing follows in memory, not even a NUL.
        const FilePath name = FilePath::fromRawData(exact.data(), static_cast<qsizetype>(exact.size()));
        EXPECT_EQ(unescaped(visibleText(name)), name);
    }
}

} // namespace tidlo
