#pragma once

#include "app/FakeExplainer.h"
#include "app/NotificationLog.h"
#include "app/OpenModel.h"
#include "fakes/FakeFileManager.h"
#include "fakes/FakeWorkspace.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <functional>

namespace tidlo {

/// A state owner with a real scanner on a real home folder, and an explainer whose answers the test gives.
class AppTest : public testing::Test
{
protected:
    AppTest();
    ~AppTest() override;

    AppEnvironment environment();

    /// The state owner, made on first use; the disk's figures have been read by then.
    OpenModel &model();

    /// Destroys the state owner, as closing the window does.
    void closeWindow() { owner.reset(); }

    /// Runs the event loop until \a condition holds.
    static void waitUntil(const std::function<bool()> &condition);

    /// Destroys the state owner and waits until all work has ended.
    void letAllEnd();

    /// Starts a scan and waits for its results and the request for an explanation.
    void scan();

    /// Shows \a candidates as if a scan had found them.
    void show(const QList<CleanupCandidate> &candidates) { model().setCandidates(candidates); }

    TemporaryHome home;
    std::shared_ptr<testing::NiceMock<FakeFileManager>> files =
        std::make_shared<testing::NiceMock<FakeFileManager>>(home.path());
    FakeExplainer explainer;
    std::shared_ptr<UserDefaults> defaults =
        std::make_shared<UserDefaults>(QString::fromUtf8(home / "preferences.conf"));
    std::shared_ptr<testing::NiceMock<FakeWorkspace>> workspace = std::make_shared<testing::NiceMock<FakeWorkspace>>();
    /// The path that the application reports; nothing exists there yet.
    Bundle bundle{.path = home / "from/Tidlo.app",
                  .executable = home / "from/Tidlo.app/Contents/MacOS/Tidlo",
                  .identifier = "com.tidlo.storagecleaner"};
    const FilePath applicationPath = home / "Applications/Tidlo.app";
    const FilePath temporaryFolder = home.folder("tmp");

private:
    std::unique_ptr<OpenModel> owner;
};

/// A candidate with that title, selected unless it is never to be touched.
CleanupCandidate candidate(const char *title, CleanupRisk risk = CleanupRisk::safe, qint64 bytes = 1,
                           CleanupCategory category = CleanupCategory::caches);

} // namespace tidlo
