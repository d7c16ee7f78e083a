#include "ui/design/Sight.h"

#include "support/WaitUntil.h"

#include <QQuickWindow>

#include <gmock/gmock.h>

namespace tidlo {

namespace {

class SightTest : public testing::Test
{
protected:
    SightTest()
    {
        QObject::connect(&sight, &Sight::isSeenChanged, &item, [this] { ++changes; });
    }

    void putInto(QQuickWindow &shown) { item.setParentItem(shown.contentItem()); }

    /// Shows it and waits for the system to do so.
    static void show(QQuickWindow &hidden)
    {
        hidden.show();
        waitUntil([&] { return hidden.isExposed(); });
    }

    QQuickWindow window;
    QQuickWindow other;
    QQuickItem item;
    Sight sight{item};
    int changes = 0;
};

} // namespace

TEST_F(SightTest, NothingIsSeenOfAnItemInNoWindow)
{
    EXPECT_FALSE(sight.isSeen());

    putInto(window);
    show(window);
    item.setParentItem(nullptr);

    EXPECT_FALSE(sight.isSeen());
}

TEST_F(SightTest, AWindowIsSeenFromWhenItIsExposedUntilItIsHidden)
{
    putInto(window);
    EXPECT_FALSE(sight.isSeen());

    window.show();
    EXPECT_FALSE(sight.isSeen());

    waitUntil([this] { return window.isExposed(); });
    EXPECT_TRUE(sight.isSeen());
    EXPECT_EQ(changes, 1);

    window.hide();
    EXPECT_FALSE(sight.isSeen());
    EXPECT_EQ(changes, 2);
}

TEST_F(SightTest, AMinimisedWindowIsNotSeen)
{
    putInto(window);
    show(window);

    window.showMinimized();
    waitUntil([&] { return window.visibility() == QWindow::Minimized; });
    EXPECT_FALSE(sight.isSeen());

    window.showNormal();
    waitUntil([&] { return sight.isSeen(); });
}

TEST_F(SightTest, AnItemIsSeenIfItsWindowIs)
{
    show(window);
    putInto(other);
    EXPECT_FALSE(sight.isSeen());
    changes = 0;

    putInto(window);
    EXPECT_TRUE(sight.isSeen());
    EXPECT_EQ(changes, 1);

    show(other);
    EXPECT_EQ(changes, 1);
}

TEST_F(SightTest, WhatIsNoItemHasNone)
{
    QObject object;
    EXPECT_EQ(Sight::qmlAttachedProperties(&object), nullptr);
}

} // namespace tidlo
