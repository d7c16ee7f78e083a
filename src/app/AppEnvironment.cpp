#include "app/AppEnvironment.h"

#include "ai/GeminiClient.h"

AppEnvironment::Explain AppEnvironment::liveExplain()
{
    return [](QList<CleanupCandidate> candidates) { return GeminiClient::explain(std::move(candidates)); };
}
