#include "cli/CliRun.h"
#include "support/InChild.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace tidlo {

using testing::StartsWith;

namespace {

/// Runs "tidlo-cli explain" where nothing else takes connections. Its status is that of a skipped test where the system
/// does not allow that.
CliRun explainAlone(const TemporaryHome &home, const QByteArrayList &environment)
{
    return runCli(home, {"explain"}, {.environment = environment, .inChild = [] {
                                          if (!enterNetworkNamespace())
                                              _exit(125);
                                      }});
}

} // namespace

TEST(ExplainCommandAlone, StartsAServiceForItselfThatKnowsNoKey)
{
    const TemporaryHome home;

    const CliRun run = explainAlone(home, {"GEMINI_API_KEY=secret", "GEMINI_BASE_URL=https://localhost:1"});

    if (run.status == 125)
        GTEST_SKIP() << "The kernel gives no network of its own here.";
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_THAT(run.output.toStdString(), StartsWith("Written without an AI model"));
}

TEST(ExplainCommandAlone, StartsNothingForAnyOtherHost)
{
    const TemporaryHome home;
    for (const char *host : {"localhost:8444", "localhost", "127.0.0.1:8443"}) {
        const CliRun run = explainAlone(home, {QByteArray("TIDLO_AI_PROXY_HOST=") + host});

        if (run.status == 125)
            GTEST_SKIP() << "The kernel gives no network of its own here.";
        EXPECT_EQ(run.status, 1) << host;
        EXPECT_THAT(run.errors.toStdString(), StartsWith("tidlo-cli: \u26A0\uFE0F Request failed: ")) << host;
        EXPECT_FALSE(home.inventory().contains(".local/state/tidlo-proxy")) << host;
    }
}

} // namespace tidlo
