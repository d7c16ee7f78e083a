#pragma once

#include "model/CleanupCandidate.h"
#include "platform/FileManager.h"

#include <QCoro/QCoroTask>

#include <functional>
#include <memory>
#include <optional>

/// What the state owner depends on. The defaults are the live values; a test passes its own.
struct AppEnvironment
{
    /// Explains findings, as GeminiClient::explain does: the answer, an error text, or nothing.
    using Explain = std::function<QCoro::Task<std::optional<QString>>(QList<CleanupCandidate> candidates)>;

    std::shared_ptr<FileManager> fileManager = makeFileManager();
    Explain explain = liveExplain();

    static Explain liveExplain();
};
