#include "ai/OwnService.h"

#include "ai/ExplainTest.h"
#include "support/InChild.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>

#include <gmock/gmock.h>

#include <csignal>
#include <cstdio>

namespace tidlo {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

/// A test in which the program starts the real service for itself.
class OwnServiceTest : public ExplainTest
{
protected:
    OwnServiceTest() { qputenv("XDG_STATE_HOME", folder / "state"); }
    ~OwnServiceTest() override
    {
        for (const char *variable :
             {"XDG_STATE_HOME", "GEMINI_API_KEY", "GEMINI_BASE_URL", "TIDLO_CHAT_URL", "LISTEN_PID"})
            qunsetenv(variable);
    }

    static std::optional<OwnService> start(const FilePath &program = TIDLO_PROXY)
    {
        QString obstacle;
        return OwnService::start(program, obstacle);
    }

    static bool isListening(int port) { return isAnswered(QUrl(QStringLiteral("https://localhost:%1").arg(port))); }
};

} // namespace

TEST_F(OwnServiceTest, ExplainsOfflineOnAPortOfItsOwnWhateverTheEnvironmentSays)
{
    qputenv("GEMINI_API_KEY", "secret");
    qputenv("GEMINI_BASE_URL", "https://localhost:1");
    qputenv("LISTEN_PID", "1");
    const auto service = start();
    ASSERT_TRUE(service);
    endpoint.host = QStringLiteral("127.0.0.1:%1").arg(service->port());

    EXPECT_THAT(explain(), StartsWith("Written without an AI model"));
}

TEST_F(OwnServiceTest, IsToldToStayOfflineAndNothingOfTheEnvironment)
{
    for (const char *variable : {"GEMINI_API_KEY", "GEMINI_BASE_URL", "TIDLO_CHAT_URL"})
        qputenv(variable, "secret");
    QFile program(QFile::decodeName(folder.file("service", 0)));
    ASSERT_TRUE(program.open(QFile::WriteOnly));
    program.write("#!/bin/sh\n(echo \"$@\"; env) > \"$XDG_STATE_HOME\"\necho ready\nexec cat");
    program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    program.close();

    const auto service = start(folder / "service");

    ASSERT_TRUE(service);
    QFile given(QFile::decodeName(folder / "state"));
    ASSERT_TRUE(given.open(QFile::ReadOnly));
    const std::string told = given.readAll().toStdString();
    EXPECT_THAT(told, StartsWith("--offline --until-eof\n"));
    EXPECT_THAT(told, Not(HasSubstr("secret")));
}

TEST_F(OwnServiceTest, IsNotNeededWhereSomebodyAnswersAtEitherAddressOfThisMachine)
{
    for (const auto address : {QHostAddress::LocalHost, QHostAddress::LocalHostIPv6}) {
        QTcpServer other;
        if (!other.listen(address))
            GTEST_SKIP() << "This machine has no such address.";
        const int port = other.serverPort();
        EXPECT_TRUE(isListening(port));
        other.close();
        EXPECT_FALSE(isListening(port));
    }
}

TEST_F(OwnServiceTest, ListensWhereOnlyThisMachineReachesIt)
{
    const auto service = start();
    ASSERT_TRUE(service);

    QTcpSocket other; // Reaches only servers that listen at every address of the machine.
    other.connectToHost(QStringLiteral("127.0.0.2"), static_cast<quint16>(service->port()));
    EXPECT_FALSE(other.waitForConnected());
}

TEST_F(OwnServiceTest, IsTrustedByNobodyElse)
{
    const auto service = start();
    ASSERT_TRUE(service);
    qputenv("XDG_STATE_HOME", folder / "another");
    endpoint.host = QStringLiteral("127.0.0.1:%1").arg(service->port());

    EXPECT_THAT(explain(), StartsWith(requestFailed));
}

TEST_F(OwnServiceTest, EndsWithItsObject)
{
    auto service = start();
    ASSERT_TRUE(service);
    const int port = service->port();
    EXPECT_TRUE(isListening(port));

    service.reset();

    EXPECT_FALSE(isListening(port));
}

TEST_F(OwnServiceTest, EndsWithTheProgramHoweverThatEnds)
{
    const ChildResult result = inChild([] {
        const auto service = start();
        const auto later = start(); // It must not inherit and hold open the pipe that the other one waits for.
        std::printf("%d\n", service && later ? service->port() : 0);
        std::fflush(stdout);
        raise(SIGKILL);
        return false;
    });
    const int port = std::stoi(result.output);
    ASSERT_NE(port, 0);

    while (isListening(port)) {
    }
}

TEST_F(OwnServiceTest, SeveralGoOnBesideEachOther)
{
    const auto one = start();
    const auto other = start();
    ASSERT_TRUE(one && other);
    EXPECT_NE(one->port(), other->port());
    endpoint.host = QStringLiteral("127.0.0.1:%1").arg(other->port());

    EXPECT_THAT(explain(), StartsWith("Written without an AI model"));
}

TEST_F(OwnServiceTest, IsNoneWhereItCannotBeStartedAndSaysWhy)
{
    for (const FilePath &program : {FilePath(), folder / "missing", FilePath("/bin/false")}) {
        QString obstacle;
        EXPECT_FALSE(OwnService::start(program, obstacle));
        EXPECT_EQ(obstacle, QStringLiteral("it ended"));
    }
}

TEST_F(OwnServiceTest, IsNoneWhereDescriptorsRunShortAndSaysWhy)
{
    const int open = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size();
    for (int left = 0; left < 6; ++left) { // With a few more, the service starts and ends, as it opens no library.
        const ChildResult result = inChild([&] {
            QString obstacle;
            return limitDescriptors(open + left) && !OwnService::start(TIDLO_PROXY, obstacle) &&
                   obstacle == QStringLiteral("Too many open files");
        });
        EXPECT_TRUE(result.succeeded) << left << ' ' << result.output;
    }
}

TEST_F(OwnServiceTest, IsNotThereForAProgramThatCameWithoutIt)
{
    EXPECT_EQ(ownServiceProgram(), "");
}

} // namespace tidlo
