#include "ui/shell/TidloApp.h"

#include "ui/UiTest.h"
#include "ui/design/TidloTheme.h"
#include "ui/design/TidloType.h"
#include "ui/shell/WindowChromeConfigurator.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <latch>

namespace tidlo {

namespace {

class TidloAppTest : public UiTest
{
protected:
    /// The application, with its window open.
    TidloApp &tidlo()
    {
        if (!opened) {
            opened = std::make_unique<TidloApp>(environment);
            EXPECT_TRUE(opened->open());
        }
        return *opened;
    }

    /// Opens the window and removes its chrome, as a platform may do.
    void openPlain()
    {
        environment.defaults->set(UserDefaults::theme, QStringLiteral("dark"));
        tidlo();
        QCoreApplication::processEvents();
        makePlain();
    }

    void makePlain()
    {
        opened->window()->setFlag(Qt::FramelessWindowHint, false);
        opened->window()->setColor(Qt::white);
    }

    bool isAdjusted() const
    {
        const bool isFrameless = opened->window()->flags().testFlag(Qt::FramelessWindowHint);
        return isFrameless != WindowChromeConfigurator::isNative() && opened->window()->color() == Qt::transparent;
    }

    template <typename Token>
    Token &tokenOf(const char *name) const
    {
        return *qmlEngine(opened->window())->singletonInstance<Token *>(qmlTypeId("Tidlo.Design", 1, 0, name));
    }

    TidloTheme &theme() const { return tokenOf<TidloTheme>("TidloTheme"); }

    std::unique_ptr<TidloApp> opened;
};

} // namespace

TEST_F(TidloAppTest, OpensOneWindowOnTheLandingScreen)
{
    QQuickWindow *const window = tidlo().window();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->title(), QStringLiteral("Tidlo — AI Storage Cleaner"));
    EXPECT_EQ(tidlo().model().section(), AppSection::scan);
    EXPECT_EQ(tidlo().model().phase(), ScanPhase::ready);
}

TEST_F(TidloAppTest, ListsOfWindowsShowTheLogoBesideIt)
{
    tidlo();
    EXPECT_FALSE(QGuiApplication::windowIcon().pixmap(64).isNull());
}

TEST_F(TidloAppTest, TheButtonsOfTheWindowStandInTheMiddleOfTheBarFromTwentyPointsOn)
{
    QQuickWindow &window = *tidlo().window();
    window.resize(1350, 720);
    QCoreApplication::processEvents();
    double left = 20;
    for (const char *name : {"closeButton", "minimiseButton", "zoomButton"}) {
        const auto *const button = window.findChild<QQuickItem *>(QLatin1StringView(name));
        ASSERT_NE(button, nullptr) << name;
        EXPECT_EQ(button->mapRectToScene(button->boundingRect()), QRectF(left, 17, 12, 12)) << name;
        EXPECT_EQ(button->isVisible(), !WindowChromeConfigurator::isNative()) << name;
        left += 20;
    }
}

TEST_F(TidloAppTest, HasNoWindowBeforeItIsOpened)
{
    const TidloApp app(environment);
    EXPECT_EQ(app.window(), nullptr);
}

TEST_F(TidloAppTest, TheWindowIsNeverSmallerThanItsContentUnlessTheScreenIs)
{
    QQuickWindow *const window = tidlo().window();
    const QSize screen = window->screen()->availableSize();
    EXPECT_EQ(window->minimumWidth(), std::min(1350, screen.width()));
    EXPECT_EQ(window->minimumHeight(), std::min(720, screen.height()));
    EXPECT_GE(window->maximumWidth(), 16'384); // The window can grow without limit.
    EXPECT_GE(window->maximumHeight(), 16'384);
}

TEST_F(TidloAppTest, InASmallerWindowEverythingIsDrawnSmallerAndFromThreeQuartersOnScrolls)
{
    struct Case
    {
        QSize window;
        double scale;
        QSizeF content; // As drawn.
    };
    environment.defaults->set(UserDefaults::setupCompleted, true);
    QQuickWindow *const window = tidlo().window();
    window->setMinimumSize({}); // As on a smaller screen.
    const auto *const content = window->findChild<QQuickItem *>(QStringLiteral("content"))->parentItem();
    for (const Case &row : {Case{{1800, 1100}, 1, {1800, 1100}}, Case{{1350, 720}, 1, {1350, 720}},
                            Case{{1024, 600}, 1024 / 1350.0, {1024, 600}}, Case{{1350, 600}, 600 / 720.0, {1350, 600}},
                            Case{{1012, 540}, 0.75, {1012.5, 540}}, Case{{800, 500}, 0.75, {1012.5, 540}}}) {
        window->resize(row.window);
        const auto drawn = [&] { return content->mapRectToScene(content->boundingRect()).size(); };
        QCoreApplication::processEvents();

        EXPECT_DOUBLE_EQ(content->scale(), row.scale) << row.window.width();
        EXPECT_NEAR(drawn().width(), row.content.width(), 0.01) << row.window.width();
        EXPECT_NEAR(drawn().height(), row.content.height(), 0.01) << row.window.width();
        const auto *const close = window->findChild<QQuickItem *>(QStringLiteral("closeButton"));
        const QRectF disc = close->mapRectToScene(close->boundingRect());
        EXPECT_NEAR(disc.left(), 20 * row.scale, 0.01);
        EXPECT_NEAR(disc.width(), 12 * row.scale, 0.01);
    }
}

TEST_F(TidloAppTest, TheChromeOutlivesAChangeOfTheTheme)
{
    openPlain();

    environment.defaults->set(UserDefaults::theme, QStringLiteral("light"));

    EXPECT_FALSE(isAdjusted());
    waitUntil([this] { return isAdjusted(); });
}

TEST_F(TidloAppTest, TheChromeOutlivesFullScreen)
{
    openPlain();

    opened->window()->showFullScreen();
    waitUntil([this] { return isAdjusted(); });

    makePlain();
    opened->window()->showNormal();
    waitUntil([this] { return isAdjusted(); });
}

TEST_F(TidloAppTest, HeedsTheSchemeThatTheDesktopWishesWhileItIsToldToBeAsTheSystem)
{
    environment.defaults->set(UserDefaults::theme, QStringLiteral("system"));
    for (const bool isDark : {true, false}) {
        tidlo().heed({.isDark = isDark, .reducedMotion = false});
        EXPECT_EQ(theme().isDark(), isDark);
    }

    environment.defaults->set(UserDefaults::theme, QStringLiteral("dark"));
    EXPECT_TRUE(theme().isDark());
}

TEST_F(TidloAppTest, LeavesTheSchemeToThePlatformWhereTheDesktopWishesNone)
{
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(dark);
    environment.defaults->set(UserDefaults::theme, QStringLiteral("system"));

    tidlo().heed({});

    EXPECT_TRUE(theme().isDark());
    QGuiApplication::setPalette(QPalette());
}

TEST_F(TidloAppTest, ReducesMotionWhereTheDesktopWishesItAsLongAsItDoes)
{
    environment.defaults->set(UserDefaults::theme, QStringLiteral("dark"));
    for (const bool isReduced : {true, false}) {
        tidlo().heed({.isDark = {}, .reducedMotion = isReduced});
        EXPECT_EQ(tokenOf<Motion>("Motion").isReduced(), isReduced);
    }
    tidlo().heed({.isDark = {}, .reducedMotion = true});

    QList<double> seen;
    QObject::connect(&theme(), &TidloTheme::colorsChanged, [&] { seen.append(theme().darkness()); });
    environment.defaults->set(UserDefaults::theme, QStringLiteral("light"));
    waitUntil([this] { return theme().darkness() == 0; });
    EXPECT_THAT(seen, testing::Each(testing::AllOf(testing::Ge(0), testing::Le(1)))); // Not a spring, which would
                                                                                      // overshoot.
}

TEST_F(TidloAppTest, RaisesTheContrastAndTheTextsAsTheDesktopWishesIt)
{
    for (const bool isHigher : {true, false}) {
        tidlo().heed({.isDark = {}, .higherContrast = isHigher, .textScale = isHigher ? 1.5 : 1});
        EXPECT_EQ(theme().isHighContrast(), isHigher);
        EXPECT_EQ(tokenOf<TidloType>("TidloType").scale(), isHigher ? 1.5 : 1);
    }
}

TEST_F(TidloAppTest, TextsHalfAsLargeAgainHaveMoreRoomThanTheWindowWhichScrolls)
{
    tidlo().heed({.isDark = {}, .textScale = 1.25});
    const auto *const root = tidlo().window()->findChild<QQuickItem *>(QStringLiteral("topBar"))->parentItem();
    EXPECT_EQ(root->width(), 1350);
    tidlo().heed({.isDark = {}, .textScale = 1.5});
    EXPECT_EQ(root->width(), 1350 * 1.2);
    EXPECT_GE(root->height(), 720 * 1.2);
}

TEST_F(TidloAppTest, AFirstRunShowsTheWizardWhereThereIsNoApplicationsFolder)
{
    EXPECT_TRUE(tidlo().model().showSetupWizard());
    EXPECT_FALSE(tidlo().model().showMoveToApplicationsPrompt());
}

TEST_F(TidloAppTest, AFirstRunOffersToMoveWhereThereIsOne)
{
    home.folder("Applications");
    EXPECT_FALSE(tidlo().model().showSetupWizard());
    EXPECT_TRUE(tidlo().model().showMoveToApplicationsPrompt());
}

TEST_F(TidloAppTest, ALaterRunShowsNeither)
{
    home.folder("Applications");
    environment.defaults->set(UserDefaults::setupCompleted, true);
    EXPECT_FALSE(tidlo().model().showSetupWizard());
    EXPECT_FALSE(tidlo().model().showMoveToApplicationsPrompt());
}

TEST_F(TidloAppTest, ClosesInTheMiddleOfAScan)
{
    // Given a scan that is under way
    home.file("Sites/project/node_modules/a.js");
    bool isUnderWay = false;
    QObject::connect(&tidlo().model(), &AppViewModel::scanProgressChanged, [&isUnderWay] { isUnderWay = true; });
    std::latch begun(1);
    std::atomic_bool isStopped = false;
    ON_CALL(*files, enumerate).WillByDefault([&](const DeepEnumeration &, const std::stop_token &stop) {
        std::latch stopped(1);
        const std::stop_callback callback(stop, [&stopped] { stopped.count_down(); });
        if (!isStopped)
            begun.count_down();
        stopped.wait();
        isStopped = true;
        return QList<CollectedItem>();
    });
    tidlo().model().startScan();
    waitUntil([&] { return isUnderWay && begun.try_wait(); });

    // When the application goes
    opened.reset();

    // Then it has stopped the walk.
    EXPECT_TRUE(isStopped);
}

TEST_F(TidloAppTest, CanBeOpenedAgainInTheSameProcess)
{
    ASSERT_NE(tidlo().window(), nullptr);
    opened.reset();
    EXPECT_NE(tidlo().window(), nullptr);
}

} // namespace tidlo
