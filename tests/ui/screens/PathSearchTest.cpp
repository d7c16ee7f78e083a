#include "ui/screens/PathSearch.h"

#include "platform/VisibleText.h"
#include "support/PrintQt.h"

#include <QStringList>

#include <gmock/gmock.h>

namespace tidlo {

namespace {

bool finds(const char *wanted, const FilePath &path)
{
    return PathSearch(QString::fromUtf8(wanted)).finds(path);
}

} // namespace

TEST(PathSearch, FindsPartsOfAPathWhateverTheirCase)
{
    EXPECT_TRUE(finds("node", "/home/me/Node_Modules"));
    EXPECT_TRUE(finds("ME/NODE", "/home/me/Node_Modules"));
    EXPECT_TRUE(finds("/home", "/home/me/Node_Modules"));
    EXPECT_TRUE(finds("modules", "/home/me/Node_Modules"));
    EXPECT_FALSE(finds("nodes", "/home/me/Node_Modules"));
    EXPECT_FALSE(finds("/home/me/Node_Modules/", "/home/me/Node_Modules"));
}

TEST(PathSearch, AnEmptyTextIsInEveryPath)
{
    EXPECT_TRUE(finds("", "/home/me"));
    EXPECT_TRUE(finds("", "/home/me/größer"));
    EXPECT_TRUE(finds("", ""));
}

TEST(PathSearch, FindsLettersOfAllAlphabets)
{
    EXPECT_TRUE(finds("größe", "/home/me/GRÖßE"));
    EXPECT_TRUE(finds("ДОКУМЕНТЫ", "/home/me/документы"));
    EXPECT_TRUE(finds("home", "/home/me/документы"));
    EXPECT_FALSE(finds("ö", "/home/me/o"));
}

TEST(PathSearch, FindsWhatIsSeenOfANameThatCannotBeShown)
{
    EXPECT_TRUE(finds("a\\nb", "/home/a\nb"));
    EXPECT_TRUE(finds("\\xff", "/home/\xff"));
    EXPECT_TRUE(finds("\\u202e", "/home/\u202Etxt"));
    EXPECT_TRUE(finds("\\\\", "/home/a\\b"));
    EXPECT_FALSE(finds("\n", "/home/a\nb"));
}

TEST(PathSearch, AgreesWithASearchOfTheShownText)
{
    const QList<FilePath> paths{"/home/Kelvin", "/home/Straße", "/home/strasse",     "/HOME/a~b",
                                "/home/a b",    "/home/\x7f",   "/home/\xE2\x84\xAA"};
    const QStringList texts{QStringLiteral("K"),          QStringLiteral("\u212A"), QStringLiteral("\u017F"),
                            QStringLiteral("ss"),         QStringLiteral("ß"),      QStringLiteral("ẞ"),
                            QStringLiteral("~"),          QStringLiteral(" "),      QStringLiteral("\\x7f"),
                            QStringLiteral("\U0001F600"), QStringLiteral("É"),      QStringLiteral("/")};
    for (const QString &text : texts) {
        PathSearch search(text);
        for (const FilePath &path : paths)
            EXPECT_EQ(search.finds(path), visibleText(path).toCaseFolded().contains(text.toCaseFolded()))
                << qPrintable(text) << " in " << path.constData();
    }
}

TEST(PathSearch, LooksIntoATextThatWasMadeBefore)
{
    const FilePath path = "/home/me/Документы";
    ASSERT_TRUE(needsSearchableText(path));
    EXPECT_TRUE(PathSearch(QStringLiteral("ДОК")).finds(path, searchableText(path)));
    EXPECT_FALSE(PathSearch(QStringLiteral("нет")).finds(path, searchableText(path)));
    EXPECT_FALSE(needsSearchableText("/home/me/Documents"));
}

} // namespace tidlo
