#include "ui/shell/WindowChromeConfigurator.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

#include <memory>

namespace tidlo {

namespace {

/// A window with everything that the chrome removes.
class WindowChromeConfiguratorTest : public testing::Test
{
protected:
    WindowChromeConfiguratorTest() { putBack(); }

    void putBack()
    {
        window.setFlag(Qt::FramelessWindowHint, false);
        window.setColor(Qt::white);
    }

    bool isPlain() const { return !window.flags().testFlag(Qt::FramelessWindowHint) && window.color() == Qt::white; }
    bool isAdjusted() const
    {
        return window.flags().testFlag(Qt::FramelessWindowHint) && window.color() == Qt::transparent;
    }

    static void oneTurn() { QCoreApplication::processEvents(); }

    QQuickWindow window;
};

} // namespace

TEST_F(WindowChromeConfiguratorTest, TakesNoRoomAndShowsNothing)
{
    const WindowChromeConfigurator chrome;
    EXPECT_EQ(chrome.size(), QSizeF(0, 0));
    EXPECT_FALSE(chrome.flags().testFlag(QQuickItem::ItemHasContents));
}

TEST_F(WindowChromeConfiguratorTest, WithoutAWindowNothingHappens)
{
    WindowChromeConfigurator chrome;
    chrome.refresh();
    oneTurn();
    EXPECT_TRUE(isPlain());
}

TEST_F(WindowChromeConfiguratorTest, IsAppliedOneTurnAfterItIsPutIntoAWindow)
{
    WindowChromeConfigurator chrome(window.contentItem());
    EXPECT_TRUE(isPlain());
    oneTurn();
    EXPECT_TRUE(isAdjusted());
}

TEST_F(WindowChromeConfiguratorTest, TheWindowMayComeLater)
{
    WindowChromeConfigurator chrome;
    oneTurn();
    chrome.setParentItem(window.contentItem());
    oneTurn();
    EXPECT_TRUE(isAdjusted());
}

TEST_F(WindowChromeConfiguratorTest, KeepsWhatElseTheWindowIs)
{
    window.setFlag(Qt::WindowStaysOnTopHint);
    WindowChromeConfigurator chrome(window.contentItem());
    oneTurn();
    EXPECT_TRUE(window.flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_EQ(window.flags() & Qt::WindowType_Mask, Qt::Window);
}

TEST_F(WindowChromeConfiguratorTest, AskedAgainItIsTheSame)
{
    WindowChromeConfigurator chrome(window.contentItem());
    oneTurn();
    const Qt::WindowFlags flags = window.flags();
    chrome.refresh();
    chrome.refresh();
    oneTurn();
    EXPECT_TRUE(isAdjusted());
    EXPECT_EQ(window.flags(), flags);
}

TEST_F(WindowChromeConfiguratorTest, ARefreshBringsItBackOneTurnLater)
{
    WindowChromeConfigurator chrome(window.contentItem());
    oneTurn();
    putBack();

    chrome.refresh();

    EXPECT_TRUE(isPlain());
    oneTurn();
    EXPECT_TRUE(isAdjusted());
}

TEST_F(WindowChromeConfiguratorTest, OutlivesAChangeOfTheWindowsState)
{
    WindowChromeConfigurator chrome(window.contentItem());
    window.show();
    oneTurn();
    putBack();

    window.showFullScreen();

    oneTurn();
    EXPECT_TRUE(isAdjusted());
}

TEST_F(WindowChromeConfiguratorTest, AWindowThatItHasLeftIsLeftAlone)
{
    WindowChromeConfigurator chrome(window.contentItem());
    window.show();
    oneTurn();
    chrome.setParentItem(nullptr);
    oneTurn();
    putBack();

    window.showFullScreen();
    chrome.refresh();

    oneTurn();
    EXPECT_TRUE(isPlain());
}

TEST_F(WindowChromeConfiguratorTest, GoingAwayBeforeItsTurnDoesNothing)
{
    auto chrome = std::make_unique<WindowChromeConfigurator>(window.contentItem());
    chrome.reset();
    oneTurn();
    EXPECT_TRUE(isPlain());
}

} // namespace tidlo
