#include "cli/CliRun.h"
#include "support/InChild.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <sys/syscall.h>

namespace tidlo {

TEST(CommandLineOnLinux, SaysSoWhereNoThreadCanBeStarted)
{
    const TemporaryHome home;
    home.file("Sites/one/node_modules/a.js");
    const CliSetup setup{.environment = {"ASAN_OPTIONS=detect_leaks=0"}, // The leak check starts a process of its own.
                         .inChild = [] {
                             denySystemCall(SYS_clone, EAGAIN);
                             denySystemCall(SYS_clone3, EAGAIN);
                         }};
    for (const QByteArrayList &arguments : {QByteArrayList{"scan"}, {"clean", "--yes"}, {"explain", "--prompt"}}) {
        const CliRun run = runCli(home, arguments, setup);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, "tidlo-cli: No thread can be started: Resource temporarily unavailable.\n");
    }
    EXPECT_EQ(runCli(home, {"--help"}, setup).status, 0);
    EXPECT_TRUE(home.inventory().contains("Sites/one/node_modules/a.js"));
}

} // namespace tidlo
