#include "ui/UiTest.h"
#include "ui/shell/TidloApp.h"
#include "ui/shell/WindowChromeConfigurator.h"
#include "ui/shell/WindowHandle.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

namespace tidlo {

namespace {

/// What a press acts on in the open window, which shows more findings than fit into it.
class WindowEdgesTest : public UiTest
{
protected:
    WindowEdgesTest()
    {
        environment.defaults->set(UserDefaults::setupCompleted, true);
        auto owned = std::make_unique<OpenModel>(environment);
        model = owned.get();
        tidlo = std::make_unique<TidloApp>(std::move(owned));
        EXPECT_TRUE(tidlo->open());
        model->showResults(demoResult());
        tidlo->window()->resize(width, height);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(tidlo->window()));
        const auto *const list = tidlo->window()->findChild<QQuickItem *>(QStringLiteral("findings"));
        waitUntil([list] { return list->property("contentHeight").toDouble() > list->height(); });
    }

    /// The item that takes a press at that position.
    QQuickItem *heldAt(QPoint place)
    {
        QTest::mousePress(tidlo->window(), Qt::LeftButton, {}, place);
        QQuickItem *const held = tidlo->window()->mouseGrabberItem();
        QTest::mouseRelease(tidlo->window(), Qt::LeftButton, {}, place);
        return held;
    }

    Qt::Edges edgesAt(QPoint place)
    {
        const auto *const handle = qobject_cast<WindowHandle *>(heldAt(place));
        return handle ? handle->property("edges").value<Qt::Edges>() : Qt::Edges();
    }

    static constexpr int width = 1350;
    static constexpr int height = 720;
    OpenModel *model = nullptr;
    std::unique_ptr<TidloApp> tidlo;
};

} // namespace

TEST_F(WindowEdgesTest, AScrollBarAtTheEdgeTakesThePress)
{
    const QQuickItem *const held = heldAt({width - 2, 300});

    ASSERT_NE(held, nullptr);
    EXPECT_TRUE(held->inherits("QQuickScrollBar")) << held->metaObject()->className();
}

TEST_F(WindowEdgesTest, TheWindowIsHeldByItsEdgesAndCorners)
{
    if (WindowChromeConfigurator::isNative())
        GTEST_SKIP() << "The system does it.";
    EXPECT_EQ(edgesAt({width - 2, height - 43}), Qt::RightEdge);
    EXPECT_EQ(edgesAt({2, 300}), Qt::LeftEdge);
    EXPECT_EQ(edgesAt({600, 2}), Qt::TopEdge);
    EXPECT_EQ(edgesAt({600, height - 2}), Qt::BottomEdge);
    EXPECT_EQ(edgesAt({width - 2, height - 2}), Qt::RightEdge | Qt::BottomEdge);
    EXPECT_EQ(edgesAt({2, 2}), Qt::LeftEdge | Qt::TopEdge);
}

TEST_F(WindowEdgesTest, TheWindowIsHeldByThemWhileAQuestionIsOpen)
{
    if (WindowChromeConfigurator::isNative())
        GTEST_SKIP() << "The system does it.";
    model->setShowSetupWizard(true);

    EXPECT_EQ(edgesAt({2, 300}), Qt::LeftEdge);
    EXPECT_NE(qobject_cast<WindowHandle *>(heldAt({600, 20})), nullptr);
    EXPECT_EQ(qobject_cast<WindowHandle *>(heldAt({600, 60})), nullptr) << "beneath the bar it is not";
}

TEST_F(WindowEdgesTest, TheEdgesAreThinnerInASmallWindow)
{
    if (WindowChromeConfigurator::isNative())
        GTEST_SKIP() << "The system does it.";
    EXPECT_EQ(edgesAt({4, 300}), Qt::LeftEdge);

    tidlo->window()->setMinimumSize({});
    tidlo->window()->resize(1012, 540);
    QCoreApplication::processEvents();

    EXPECT_EQ(edgesAt({2, 300}), Qt::LeftEdge);
    EXPECT_EQ(edgesAt({4, 300}), Qt::Edges());
}

TEST_F(WindowEdgesTest, AQuestionIsDrawnAsSmallAsTheWindow)
{
    tidlo->window()->setMinimumSize({});
    tidlo->window()->resize(1024, 600);
    model->setShowSetupWizard(true);
    const auto *const button = tidlo->window()->findChild<QQuickItem *>(QStringLiteral("getStarted"));
    ASSERT_NE(button, nullptr);
    const double scale = 1024 / 1350.0;

    waitUntil(
        [&] { return qFuzzyCompare(button->mapRectToScene(button->boundingRect()).width(), button->width() * scale); });
}

TEST_F(WindowEdgesTest, APressOnAnEmptyPlaceClearsASelection)
{
    model->setAiSummary(demoExplanation());
    model->setIsGeneratingAI(false);
    auto *const text = tidlo->window()->findChild<QQuickItem *>(QStringLiteral("explanation"));
    ASSERT_NE(text, nullptr);
    const auto selected = [text] { return text->property("selectedText").toString(); };
    for (const QPoint place : {QPoint(600, 100), QPoint(600, 8), QPoint(29, 500)}) {
        text->forceActiveFocus();
        QMetaObject::invokeMethod(text, "selectAll");
        ASSERT_FALSE(selected().isEmpty());

        heldAt(place);

        EXPECT_EQ(selected(), QString());
    }
}

} // namespace tidlo
