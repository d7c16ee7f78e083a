#include "support/PrintQt.h"
#include "ui/design/SymbolDrawing.h"
#include "ui/design/ThemePreference.h"
#include "ui/screens/Presentation.h"
#include "ui/shell/Navigation.h"

#include <QDirIterator>
#include <QRegularExpression>

#include <gmock/gmock.h>

namespace tidlo {

using testing::Contains;
using testing::IsSupersetOf;

namespace {

/// Every text that a QML file assigns to the name of a Symbol, or to a property called symbol.
QStringList namesInQml()
{
    static const QRegularExpression binding(
        QStringLiteral(R"x((?:\bSymbol\s*\{[^{}]*?\bname|(?<![.\w])symbol):\s*([^,;}\n]*))x"));
    static const QRegularExpression literal(QStringLiteral(R"x("([^"]*)")x"));
    QStringList names;
    QDirIterator files(QStringLiteral(TIDLO_SOURCES "/ui"), {QStringLiteral("*.qml")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        for (const QRegularExpressionMatch &bound : binding.globalMatch(text)) {
            const QString value = bound.captured(1);
            for (const QRegularExpressionMatch &found : literal.globalMatch(value))
                names.append(found.captured(1));
        }
    }
    return names;
}

} // namespace

TEST(SymbolsInUse, EveryNameInTheQmlFilesHasADrawing)
{
    const QStringList used = namesInQml();
    ASSERT_THAT(used, IsSupersetOf({QStringLiteral("bell"), QStringLiteral("checkmark.square.fill"),
                                    QStringLiteral("square"), QStringLiteral("trash")}));
    for (const QString &name : used)
        EXPECT_THAT(symbolNames(), Contains(name));
}

TEST(SymbolsInUse, EveryCategoryHasADrawing)
{
    for (const CleanupCategory category :
         {CleanupCategory::devProjects, CleanupCategory::whatsApp, CleanupCategory::caches, CleanupCategory::downloads,
          CleanupCategory::oldLargeFiles, CleanupCategory::protected_})
        EXPECT_THAT(symbolNames(), Contains(presentationOf(category).symbol.toString()));
}

TEST(SymbolsInUse, EveryButtonOfTheRailHasADrawing)
{
    for (const RailItem &item : Navigation::rail())
        EXPECT_THAT(symbolNames(), Contains(item.symbol));
}

TEST(SymbolsInUse, EveryThemeHasADrawing)
{
    for (const char *theme : {"dark", "light", "system"})
        EXPECT_THAT(symbolNames(), Contains(themeSymbol(QString::fromLatin1(theme))));
}

} // namespace tidlo
