#include "app/AppTest.h"

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FirstRun : public AppTest
{
protected:
    /// The properties that beginFirstRun() assigns.
    std::vector<std::string> begun()
    {
        NotificationLog log(model());
        model().beginFirstRun();
        return log.taken();
    }
};

} // namespace

TEST_F(FirstRun, OffersToMoveWhereThereIsAnApplicationsFolder)
{
    home.folder("Applications");

    EXPECT_THAT(begun(), ElementsAre("showMoveToApplicationsPrompt: true"));
}

TEST_F(FirstRun, OffersToMoveOverAnotherCopyToo)
{
    home.file("Applications/Tidlo.app/Contents/MacOS/Tidlo");
    home.file("from/Tidlo.app/Contents/MacOS/Tidlo");

    EXPECT_THAT(begun(), ElementsAre("showMoveToApplicationsPrompt: true"));
}

TEST_F(FirstRun, GoesOnAsIfDeclinedWhereThereIsNoApplicationsFolder)
{
    EXPECT_THAT(begun(), ElementsAre("showMoveToApplicationsPrompt: false", "showSetupWizard: true"));
}

TEST_F(FirstRun, GoesOnAsIfDeclinedWhereAFileHasTheNameOfThatFolder)
{
    home.file("Applications");

    EXPECT_THAT(begun(), ElementsAre("showMoveToApplicationsPrompt: false", "showSetupWizard: true"));
}

TEST_F(FirstRun, GoesOnAsIfDeclinedWhereItIsInPlaceAlready)
{
    home.file("Applications/Tidlo.app/Contents/MacOS/Tidlo");
    home.link("elsewhere", home / "Applications");
    for (const char *path : {"Applications/Tidlo.app", "elsewhere/Tidlo.app"}) {
        bundle.path = home / path;
        bundle.executable = bundle.path + "/Contents/MacOS/Tidlo";
        EXPECT_THAT(begun(), ElementsAre("showMoveToApplicationsPrompt: false", "showSetupWizard: true")) << path;
    }
}

TEST_F(FirstRun, ShowsNothingOnceSetupHasBeenCompleted)
{
    defaults->set(UserDefaults::setupCompleted, true);
    EXPECT_THAT(begun(), IsEmpty());

    home.folder("Applications");
    EXPECT_THAT(begun(), IsEmpty());
}

TEST_F(FirstRun, GoesOnAsIfDeclinedWhereItRunsFromNoBundle)
{
    home.folder("Applications");
    const FilePath lone = home / "build/tidlo";
    for (const Bundle &running : {Bundle{.path = lone, .executable = lone, .identifier = std::nullopt},
                                  Bundle{.path = home / "Other.app",
                                  .executable = home / "Other.app/build/tidlo",
                                  .identifier = "com.tidlo.storagecleaner"},
                                  Bundle()}) {
        bundle = running;
        EXPECT_THAT(begun(), ElementsAre("showMoveToApplicationsPrompt: false", "showSetupWizard: true"))
            << running.executable.constData();
    }
}

} // namespace tidlo
