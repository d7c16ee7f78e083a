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

/// What the state owner depends on. The defaults are the live values; a test passes its own.
struct AppEnvironment
{
    /// Explains findings, as GeminiClient::explain does: the answer, an error text, or nothing.
    using Explain =
        std::function<QCoro::Task<std::optional<QString>>(QList<CleanupCandidate> candidates, ExplainWatch watch)>;

    std::shared_ptr<FileManager> fileManager = makeFileManager();
    Explain explain = liveExplain();
    std::shared_ptr<UserDefaults> defaults = std::make_shared<UserDefaults>();
    std::shared_ptr<Workspace> workspace = makeWorkspace();
    std::function<Bundle()> bundle = mainBundle;          ///< Of this application, wherever it has been moved.
    FilePath applicationPath = "/Applications/Tidlo.app"; ///< Where placement puts the application.
    FilePath temporaryFolder = liveTemporaryFolder();     ///< Where the script that uninstalls it is written.

    static Explain liveExplain();
    static FilePath liveTemporaryFolder();
};

} // namespace tidlo
