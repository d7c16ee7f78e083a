#include "ui/design/KeyFocus.h"

#include <QFocusEvent>
#include <QQuickItem>
#include <QQuickWindow>

#include <gtest/gtest.h>

namespace tidlo {

namespace {

class KeyFocusTest : public testing::Test
{
protected:
    void focusBy(Qt::FocusReason reason)
    {
        QFocusEvent event(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(&item, &event);
    }

    /// Sends an event like one from the system.
    void pressAnything(QEvent::Type type)
    {
        if (type == QEvent::KeyPress) {
            QKeyEvent key(type, Qt::Key_Return, Qt::NoModifier);
            QCoreApplication::sendEvent(&window, &key);
        } else {
            QMouseEvent press(type, {}, {}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&window, &press);
        }
    }

    QQuickWindow window;
    QQuickItem item{window.contentItem()};
    KeyFocus &focus = *KeyFocus::qmlAttachedProperties(&item);
};

} // namespace

TEST_F(KeyFocusTest, IsVisualWhereAKeyBroughtIt)
{
    EXPECT_FALSE(focus.isVisual());
    for (const Qt::FocusReason byKey : {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::ShortcutFocusReason}) {
        focusBy(byKey);
        EXPECT_TRUE(focus.isVisual()) << byKey;
        focusBy(Qt::MouseFocusReason);
        EXPECT_FALSE(focus.isVisual());
    }
}

TEST_F(KeyFocusTest, StaysAsItIsWhereItOnlyComesBack)
{
    for (const Qt::FocusReason first : {Qt::TabFocusReason, Qt::MouseFocusReason}) {
        focusBy(first);
        for (const Qt::FocusReason back : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
            focusBy(back);
            EXPECT_EQ(focus.isVisual(), first == Qt::TabFocusReason) << back;
        }
    }
}

TEST_F(KeyFocusTest, IsVisualWhereTheProgramBroughtItAfterAKeyAndNotAfterTheMouse)
{
    for (const QEvent::Type last : {QEvent::KeyPress, QEvent::MouseButtonPress}) {
        pressAnything(last);
        focusBy(Qt::OtherFocusReason);
        EXPECT_EQ(focus.isVisual(), last == QEvent::KeyPress);
    }
}

TEST(KeyFocus, BelongsToItemsAlone)
{
    QObject other;
    EXPECT_EQ(KeyFocus::qmlAttachedProperties(&other), nullptr);
}

} // namespace tidlo
