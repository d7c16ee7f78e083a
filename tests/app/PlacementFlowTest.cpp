#include "app/AppTest.h"
#include "support/InChild.h"

#include <QCoreApplication>

#include <cstring>
#include <thread>

namespace tidlo {

using testing::_;
using testing::ElementsAre;
using testing::InSequence;
using testing::IsEmpty;

namespace {

class PlacementFlow : public AppTest
{
protected:
    PlacementFlow()
    {
        home.file("from/Tidlo.app/Contents/MacOS/Tidlo");
        home.folder("Applications");
    }

    static std::string because(int error) { return std::strerror(error); }

    /// The assignments of a failure, on a machine where setup has not been completed.
    static auto failure(const std::string &message)
    {
        return ElementsAre("moveToApplicationsErrorMessage: " + message, "showMoveToApplicationsError: true",
                           "showSetupWizard: true");
    }

    bool isCopied() const { return home.inventory().contains("Applications/Tidlo.app/Contents/MacOS/Tidlo"); }
    bool isSourceThere() const { return home.inventory().contains("from/Tidlo.app/Contents/MacOS/Tidlo"); }

    /// Makes the desktop report the result of opening the copy, and waits until that was handled.
    void tellOpened(const std::optional<QString> &error)
    {
        workspace->opened(error);
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(PlacementFlow, GoesToTheApplicationsFolder)
{
    EXPECT_EQ(AppEnvironment().applicationPath, "/Applications/Tidlo.app");
}

TEST_F(PlacementFlow, IsFollowedByTheWizardWhenDeclined)
{
    model().setShowMoveToApplicationsPrompt(true);
    NotificationLog log(model());

    model().skipMoveToApplicationsPrompt();

    EXPECT_THAT(log.taken(), ElementsAre("showMoveToApplicationsPrompt: false", "showSetupWizard: true"));
}

TEST_F(PlacementFlow, IsNotFollowedByTheWizardOnceSetupHasBeenCompleted)
{
    defaults->set(UserDefaults::setupCompleted, true);
    model().setShowMoveToApplicationsPrompt(true);
    NotificationLog log(model());

    model().skipMoveToApplicationsPrompt();

    EXPECT_THAT(log.taken(), ElementsAre("showMoveToApplicationsPrompt: false", "showSetupWizard: false"));
}

TEST_F(PlacementFlow, IsFollowedByTheWizardAgainWhenTheFlagIsFalseOrGone)
{
    for (const QVariant &value : {QVariant(false), QVariant()}) {
        defaults->set(UserDefaults::setupCompleted, true);
        defaults->set(UserDefaults::setupCompleted, value);
        model().setShowSetupWizard(false);

        model().skipMoveToApplicationsPrompt();

        EXPECT_TRUE(model().showSetupWizard());
    }
}

TEST_F(PlacementFlow, IsFollowedByTheWizardAgainWhenItFailsAndTheFlagIsGone)
{
    defaults->set(UserDefaults::setupCompleted, true);
    defaults->set(UserDefaults::setupCompleted, {});
    ASSERT_EQ(rmdir((home / "Applications").constData()), 0);
    NotificationLog log(model());

    model().moveToApplicationsFolder();

    EXPECT_THAT(log.taken(), failure(because(ENOENT)));
}

TEST_F(PlacementFlow, CopiesRegistersOpensAndQuitsInThisOrder)
{
    NotificationLog log(model());
    const InSequence inThisOrder;
    EXPECT_CALL(*workspace, registerApplication(applicationPath)).WillOnce([&](const FilePath &) {
        EXPECT_TRUE(isCopied());
    });
    EXPECT_CALL(*workspace, openApplication(applicationPath, _));
    EXPECT_CALL(*workspace, terminateApplication());

    model().moveToApplicationsFolder();
    tellOpened(std::nullopt);

    EXPECT_THAT(log.taken(), IsEmpty());
    EXPECT_TRUE(isSourceThere());
}

TEST_F(PlacementFlow, DoesNotQuitBeforeTheCopyHasOpened)
{
    EXPECT_CALL(*workspace, terminateApplication()).Times(0);

    model().moveToApplicationsFolder();
    QCoreApplication::processEvents();
    workspace->opened(std::nullopt); // Even then not from within the call.
}

TEST_F(PlacementFlow, ReplacesAnyVersionThatIsThere)
{
    home.file("Applications/Tidlo.app/Contents/MacOS/Old");

    model().moveToApplicationsFolder();

    EXPECT_TRUE(isCopied());
    EXPECT_FALSE(home.inventory().contains("Applications/Tidlo.app/Contents/MacOS/Old"));
    EXPECT_FALSE(model().showMoveToApplicationsError());
}

TEST_F(PlacementFlow, ShowsTheSystemsWordsWhenTheFolderIsMissing)
{
    ASSERT_EQ(rmdir((home / "Applications").constData()), 0);
    NotificationLog log(model());
    EXPECT_CALL(*workspace, registerApplication).Times(0);
    EXPECT_CALL(*workspace, openApplication).Times(0);

    model().moveToApplicationsFolder();

    EXPECT_THAT(log.taken(), failure(because(ENOENT)));
    EXPECT_TRUE(isSourceThere());
}

TEST_F(PlacementFlow, ShowsTheAlertWithoutTheWizardOnceSetupHasBeenCompleted)
{
    defaults->set(UserDefaults::setupCompleted, true);
    ASSERT_EQ(rmdir((home / "Applications").constData()), 0);
    NotificationLog log(model());

    model().moveToApplicationsFolder();

    EXPECT_THAT(log.taken(), ElementsAre("moveToApplicationsErrorMessage: " + because(ENOENT),
                                         "showMoveToApplicationsError: true", "showSetupWizard: false"));
}

TEST_F(PlacementFlow, ShowsTheSystemsWordsWhenTheFolderMayNotBeWritten)
{
    chmod(home.path().constData(), 0755);
    chmod((home / "Applications").constData(), 0555);
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        model().moveToApplicationsFolder();
        EXPECT_EQ(model().moveToApplicationsErrorMessage().toStdString(), because(EACCES));
        EXPECT_TRUE(model().showMoveToApplicationsError());
        EXPECT_TRUE(model().showSetupWizard());
        return !HasFailure();
    });

    EXPECT_TRUE(result.succeeded) << result.output;
    EXPECT_TRUE(isSourceThere());
}

TEST_F(PlacementFlow, NeverPutsAProgramWithoutABundleInPlaceOfAnApplication)
{
    home.file("Applications/Tidlo.app/Contents/MacOS/Old");
    home.file("build/tidlo");
    home.file("Other.app/build/tidlo");
    const FilePath lone = home / "build/tidlo";
    EXPECT_CALL(*workspace, openApplication).Times(0);
    for (const Bundle &running :
         {Bundle{.path = lone, .executable = lone, .identifier = std::nullopt},
          Bundle{
              .path = home / "Other.app", .executable = home / "Other.app/build/tidlo", .identifier = std::nullopt}}) {
        bundle = running;
        closeWindow();
        model();
        NotificationLog log(model());

        model().moveToApplicationsFolder();

        EXPECT_THAT(log.taken(), failure("The running program is not in a bundle."));
        EXPECT_TRUE(home.inventory().contains("Applications/Tidlo.app/Contents/MacOS/Old"));
    }
}

TEST_F(PlacementFlow, RefusesToReplaceTheRunningApplication)
{
    for (const char *running : {"Applications/Tidlo.app", "Applications/Tidlo.app/Contents/Inner.app"}) {
        bundle.path = home / running;
        bundle.executable = bundle.path + "/Contents/MacOS/Tidlo";
        home.file(running + FilePath("/Contents/MacOS/Tidlo"));
        closeWindow();

        model().moveToApplicationsFolder();

        EXPECT_EQ(model().moveToApplicationsErrorMessage().toStdString(), because(EINVAL)) << running;
        EXPECT_TRUE(home.inventory().contains(running + std::string("/Contents/MacOS/Tidlo"))) << running;
    }
}

TEST_F(PlacementFlow, LeavesTheCopyThatDoesNotOpen)
{
    NotificationLog log(model());
    EXPECT_CALL(*workspace, terminateApplication()).Times(0);

    model().moveToApplicationsFolder();
    tellOpened(QStringLiteral("It would not."));

    EXPECT_THAT(log.taken(), failure("It would not."));
    EXPECT_TRUE(isCopied());
    EXPECT_TRUE(isSourceThere());
}

TEST_F(PlacementFlow, MayBeToldOnAnotherThread)
{
    NotificationLog log(model());

    model().moveToApplicationsFolder();
    std::thread([&] { workspace->opened(QStringLiteral("It would not.")); }).join();
    EXPECT_THAT(log.taken(), IsEmpty());
    QCoreApplication::processEvents();

    EXPECT_THAT(log.taken(), failure("It would not."));
}

TEST_F(PlacementFlow, QuitsOnTheMainThreadWhereverItIsTold)
{
    model().moveToApplicationsFolder();
    std::thread([&] { workspace->opened(std::nullopt); }).join();

    EXPECT_CALL(*workspace, terminateApplication()).WillOnce([main = std::this_thread::get_id()] {
        EXPECT_EQ(std::this_thread::get_id(), main);
    });
    QCoreApplication::processEvents();
}

TEST_F(PlacementFlow, MayBeToldWhenTheWindowIsGone)
{
    model().moveToApplicationsFolder();
    EXPECT_CALL(*workspace, terminateApplication()).Times(0);

    closeWindow();
    tellOpened(QStringLiteral("Nobody reads this."));
    tellOpened(std::nullopt);
}

TEST_F(PlacementFlow, CanBeTriedAgain)
{
    ASSERT_EQ(rmdir((home / "Applications").constData()), 0);
    model().moveToApplicationsFolder();
    model().setShowMoveToApplicationsError(false);
    home.folder("Applications");

    model().moveToApplicationsFolder();

    EXPECT_TRUE(isCopied());
    EXPECT_FALSE(model().showMoveToApplicationsError());
}

} // namespace tidlo
