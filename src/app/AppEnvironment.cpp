#include "app/AppEnvironment.h"

#include <QDir>

namespace tidlo {

AppEnvironment::Explain AppEnvironment::liveExplain()
{
    return [](QList<CleanupCandidate> candidates, ExplainWatch watch) {
        return GeminiClient::explain(std::move(candidates), {}, std::move(watch));
    };
}

FilePath AppEnvironment::liveTemporaryFolder()
{
    return QFile::encodeName(QDir::tempPath());
}

} // namespace tidlo
