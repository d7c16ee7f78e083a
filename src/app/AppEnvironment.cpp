#include "app/AppEnvironment.h"

#include "ai/GeminiClient.h"

#include <QDir>

namespace tidlo {

AppEnvironment::Explain AppEnvironment::liveExplain()
{
    return [](QList<CleanupCandidate> candidates) { return GeminiClient::explain(std::move(candidates)); };
}

FilePath AppEnvironment::liveTemporaryFolder()
{
    return QFile::encodeName(QDir::tempPath());
}

} // namespace tidlo
