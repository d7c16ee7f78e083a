#include "ui/design/LineSpacing.h"

#include "support/PrintQt.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTextBlock>
#include <QTextDocument>

#include <gmock/gmock.h>

namespace tidlo {

namespace {

class LineSpacingTest : public testing::Test
{
protected:
    LineSpacingTest()
    {
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nTextEdit { text: 'one\\ntwo\\nthree'; font.pixelSize: 20 }", {});
        edit.reset(qobject_cast<QQuickItem *>(component.create()));
        EXPECT_TRUE(edit) << qPrintable(component.errorString());
    }

    QQuickTextDocument *document() const { return edit->property("textDocument").value<QQuickTextDocument *>(); }
    double height() const { return edit->property("contentHeight").toDouble(); }

    /// The extra space of each line, beyond what its font has.
    QList<double> room() const
    {
        QList<double> room;
        for (QTextBlock block = document()->textDocument()->begin(); block.isValid(); block = block.next()) {
            EXPECT_EQ(block.blockFormat().lineHeightType(), QTextBlockFormat::LineDistanceHeight);
            room.append(block.blockFormat().lineHeight());
        }
        return room;
    }

    QQmlEngine engine;
    std::unique_ptr<QQuickItem> edit;
    LineSpacing spacing;
};

} // namespace

TEST_F(LineSpacingTest, EveryLineTakesItsRoom)
{
    const double before = height();
    spacing.setDocument(document());
    spacing.setSpacing(4);

    EXPECT_THAT(room(), testing::ElementsAre(4, 4, 4));
    EXPECT_GE(height(), before + 2 * 4);
    EXPECT_LE(height(), before + 3 * 4);
}

TEST_F(LineSpacingTest, ItDoesNotMatterWhichIsToldFirst)
{
    spacing.setSpacing(3);
    spacing.setDocument(document());
    EXPECT_THAT(room(), testing::ElementsAre(3, 3, 3));
}

TEST_F(LineSpacingTest, ANewTextTakesItAsWell)
{
    spacing.setDocument(document());
    spacing.setSpacing(4);
    edit->setProperty("text", QStringLiteral("another\ntext"));
    EXPECT_THAT(room(), testing::ElementsAre(4, 4));
}

TEST_F(LineSpacingTest, AnotherSpacingTakesThePlaceOfTheFirst)
{
    spacing.setDocument(document());
    spacing.setSpacing(4);
    spacing.setSpacing(2);
    EXPECT_THAT(room(), testing::ElementsAre(2, 2, 2));
}

TEST_F(LineSpacingTest, LeavesTheTextAlone)
{
    spacing.setDocument(document());
    spacing.setSpacing(4);
    EXPECT_EQ(edit->property("text").toString(), QStringLiteral("one\ntwo\nthree"));
}

TEST_F(LineSpacingTest, OutlivesTheTextItIsGivenTo)
{
    spacing.setDocument(document());
    edit.reset();
    spacing.setSpacing(4);
    EXPECT_EQ(spacing.document(), nullptr);
    EXPECT_EQ(spacing.spacing(), 4);
}

} // namespace tidlo
