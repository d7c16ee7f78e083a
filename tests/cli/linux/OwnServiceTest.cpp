#include "cli/CliRun.h"
#include "support/InChild.h"

#include <gmock/gmock.h>

#include <csignal>

#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tidlo {

using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// Runs "tidlo-cli explain" where nothing else takes connections. Returns the status of a skipped test if the system
/// does not allow that.
CliRun explainAlone(
    const TemporaryHome &home, const QByteArrayList &environment, void (*prepare)() = [] {})
{
    return runCli(home, {"explain"}, {.environment = environment, .inChild = [prepare] {
                                          if (!enterNetworkNamespace())
                                              _exit(125);
                                          prepare();
                                      }});
}

/// Listens at the built-in address and ends each connection, while the program runs that is started next.
void endEachConnection()
{
    sockaddr_in name{};
    name.sin_family = AF_INET;
    name.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    name.sin_port = htons(8443);
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    if (bind(listener, reinterpret_cast<const sockaddr *>(&name), sizeof name) != 0 || listen(listener, SOMAXCONN) != 0)
        _exit(124);
    const pid_t program = getpid();
    if (fork() != 0)
        return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    while (getppid() == program)
        close(accept(listener, nullptr, nullptr));
    _exit(0);
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

TEST(ExplainCommandAlone, AsksItsOwnServiceThroughNoProxy)
{
    const TemporaryHome home;

    const CliRun run = explainAlone(home, {"https_proxy=http://127.0.0.1:1"});

    if (run.status == 125)
        GTEST_SKIP() << "The kernel gives no network of its own here.";
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
}

TEST(ExplainCommandAlone, TellsWhyItsOwnServiceDoesNotStart)
{
    const TemporaryHome home;

    const CliRun run = explainAlone(home, {"XDG_STATE_HOME=" + home.file("file")});

    if (run.status == 125)
        GTEST_SKIP() << "The kernel gives no network of its own here.";
    EXPECT_EQ(run.status, 1) << run.output.toStdString();
    EXPECT_THAT(run.errors.toStdString(), HasSubstr(" (and the program's own service could not be started: it ended)"));
}

TEST(ExplainCommandAlone, StartsNothingWhereSomebodyAnswers)
{
    const TemporaryHome home;

    const CliRun run = explainAlone(home, {}, endEachConnection);

    if (run.status == 125)
        GTEST_SKIP() << "The kernel gives no network of its own here.";
    EXPECT_EQ(run.status, 1) << run.output.toStdString();
    EXPECT_THAT(run.errors.toStdString(), StartsWith("tidlo-cli: \u26A0\uFE0F Request failed: "));
    EXPECT_FALSE(home.inventory().contains(".local/state/tidlo-proxy"));
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
