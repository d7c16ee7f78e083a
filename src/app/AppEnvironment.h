#pragma once

#include "ai/GeminiClient.h"
#include "platform/Bundle.h"
#include "platform/FileManager.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

#include <QCoro/QCoroTask>

#include <functional>
#include <memory>
#include <optional>

namespace tidlo {

/// The dependencies of the state owner. The defaults are the live values; a test passes its own.
struct AppEnvironment
{
    /// Explains findings, as GeminiClient::explain does: the answer, an error text, or nothing.
    using Explain =
        std::function<QCoro::Task<std::optional<QString>>(QList<CleanupCandidate> candidates, ExplainWatch watch)>;

    std::shared_ptr<FileManager> fileManager = makeFileManager();
    Explain explain = liveExplain();
    std::shared_ptr<UserDefaults> defaults = std::make_shared<UserDefaults>();
    std::shared_ptr<Workspace> workspace = makeWorkspace();
    std::function<Bundle()> bundle = mainBundle;          ///< This application's bundle, wherever it was moved to.
    FilePath applicationPath = "/Applications/Tidlo.app"; ///< Where placement puts the application.
    FilePath temporaryFolder = liveTemporaryFolder();     ///< The folder for the uninstall script.

    static Explain liveExplain();
    static FilePath liveTemporaryFolder();
};

} // namespace tidlo
