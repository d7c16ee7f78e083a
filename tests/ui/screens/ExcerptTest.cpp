#include "ui/screens/Excerpt.h"

#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace tidlo {

namespace {

const QString thumb = QStringLiteral("\U0001F44D\U0001F3FD"); // With a skin tone: two characters, four UTF-16 units.
const QString family = QStringLiteral("\U0001F469\u200D\U0001F469\u200D\U0001F466"); // Five characters.
const QString accented = QStringLiteral("e\u0301\u0302");

void expectExcerpt(const QString &text, qsizetype most, const QString &shown, qsizetype more)
{
    const Excerpt excerpt = excerptOf(text, most);
    EXPECT_EQ(excerpt.text, shown);
    EXPECT_EQ(excerpt.more, more) << qPrintable(text);
}

} // namespace

TEST(Excerpt, OfATextThatIsShortEnoughIsTheWhole)
{
    expectExcerpt(QString(), 3, QString(), 0);
    expectExcerpt(QStringLiteral("abc"), 3, QStringLiteral("abc"), 0);
    expectExcerpt(QStringLiteral("\U0001F600\U0001F600\U0001F600"), 3, QStringLiteral("\U0001F600\U0001F600\U0001F600"),
                  0);
}

TEST(Excerpt, OfALongerTextIsItsBeginning)
{
    expectExcerpt(QStringLiteral("abcd"), 3, QStringLiteral("abc"), 1);
    expectExcerpt(QStringLiteral("\n\n\n\n\n"), 3, QStringLiteral("\n\n\n"), 2);
    expectExcerpt(QString(1'000'000, u'x'), 4'000, QString(4'000, u'x'), 996'000);
}

TEST(Excerpt, CountsCharactersWhateverRoomTheyTake)
{
    expectExcerpt(QStringLiteral("a\U0001F600b\U0001F600\U0001F600"), 3, QStringLiteral("a\U0001F600b"), 2);
    expectExcerpt(QStringLiteral("\U0001F600").repeated(5), 3, QStringLiteral("\U0001F600").repeated(3), 2);
}

TEST(Excerpt, DoesNotCutApartWhatIsDrawnAsOne)
{
    expectExcerpt(QStringLiteral("a") + thumb, 2, QStringLiteral("a"), 2);
    expectExcerpt(QStringLiteral("a") + thumb + QStringLiteral("b"), 3, QStringLiteral("a") + thumb, 1);
    for (qsizetype most = 1; most <= 5; ++most)
        expectExcerpt(QStringLiteral("a") + family, most, QStringLiteral("a"), 5);
    for (qsizetype most = 1; most <= 3; ++most)
        expectExcerpt(QStringLiteral("a") + accented, most, QStringLiteral("a"), 3);
    expectExcerpt(QStringLiteral("a\r\nb"), 2, QStringLiteral("a"), 3);
}

TEST(Excerpt, CutsWhereNothingElseIsLeft)
{
    expectExcerpt(accented, 2, QStringLiteral("e\u0301"), 1);
    expectExcerpt(QStringLiteral("\U0001F600") + QString(10, QChar(0x301)), 4,
                  QStringLiteral("\U0001F600\u0301\u0301\u0301"), 7);
}

TEST(Excerpt, TakesBrokenTextAsItIs)
{
    const QChar lone(0xd83d);
    expectExcerpt(QString(5, lone), 3, QString(3, lone), 2);
    expectExcerpt(QString(5, QChar(0xde00)), 3, QString(3, QChar(0xde00)), 2);
}

} // namespace tidlo
