#include "ai/ExplainTest.h"
#include "ai/HttpsExchange.h"
#include "ai/OwnService.h"
#include "ai/PlainServer.h"
#include "support/InChild.h"

#include <QFile>

#include <gmock/gmock.h>

#include <sys/resource.h>
#include <sys/stat.h>

namespace tidlo {

using testing::StartsWith;

namespace {

using Transfer = ExplainTest;

const QByteArray answerOfA = R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})";

} // namespace

TEST_F(Transfer, GoesWhereTheApplicationWasBuiltToAsk)
{
    EXPECT_EQ(ExplainEndpoint().host.toStdString(), TIDLO_AI_PROXY_HOST);
}

TEST(ExplainEndpoint, TakesAHostWithOrWithoutAPort)
{
    for (const char *host : {"explain.example", "explain.example:8443", "127.0.0.1:1", "[::1]:65535", ""})
        EXPECT_EQ(ExplainEndpoint::hostFrom(QLatin1StringView(host)), std::optional<QString>(QLatin1StringView(host)));
}

TEST(ExplainEndpoint, TakesNothingElseForAHost)
{
    for (const char *other : {"https://explain.example", "explain.example/path", "user@explain.example", "@", ":8443",
                              "explain.example:0", "explain.example:65536", "explain example", "a:b:c", "host:port"})
        EXPECT_FALSE(ExplainEndpoint::hostFrom(QLatin1StringView(other))) << other;
}

TEST(ExplainEndpoint, IsOwnOnlyOnThisMachine)
{
    for (const char *host : {"localhost", "localhost:8443", "127.0.0.1", "[::1]:443"})
        EXPECT_TRUE(isThisMachine(QLatin1StringView(host))) << host;
    for (const char *host : {"", "example.org", "localhost.example.org:8443", "192.0.2.1"})
        EXPECT_FALSE(isThisMachine(QLatin1StringView(host))) << host;
    EXPECT_TRUE(ExplainEndpoint().isOwn());
    EXPECT_FALSE(ExplainEndpoint{.host = QStringLiteral("localhost:1")}.isOwn());
}

TEST_F(Transfer, NeedsAnAuthorityThatIsTrusted)
{
    const TestAuthority stranger;
    const ScriptedServer server(stranger.issue("localhost"), sending(reply(200, answerOfA)));

    EXPECT_THAT(explainBy(server), StartsWith(requestFailed));
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(Transfer, TrustsTheUsersOwnServiceForTheNamesOfThisMachineAlone)
{
    const TestAuthority own;
    QFile kept(QFile::decodeName(folder.file("state/tidlo-proxy/certificate.pem", 0)));
    ASSERT_TRUE(kept.open(QIODevice::WriteOnly) && kept.write(own.certificate()) > 0);
    kept.close();
    chmod((folder / "state/tidlo-proxy").constData(), 0700);
    chmod((folder / "state/tidlo-proxy/certificate.pem").constData(), 0600);
    qputenv("XDG_STATE_HOME", folder / "state");
    endpoint.authorities = [] { return QByteArray(); };
    const ScriptedServer server(own.issue("localhost"), sending(reply(200, answerOfA)));
    const ScriptedServer other(own.issue("other.localhost"), sending(reply(200, answerOfA)));

    EXPECT_EQ(explainBy(server), "A");
    endpoint.host = QStringLiteral("other.") + other.host();
    EXPECT_THAT(explain(), StartsWith(requestFailed));
    endpoint.authorities = [&own] { return own.certificate(); };
    EXPECT_EQ(explain(), "A") << "where somebody else vouches for it";

    qunsetenv("XDG_STATE_HOME");
}

TEST_F(Transfer, NeedsTheAuthorityThatTheEnvironmentNames)
{
    endpoint.authorities = ExplainEndpoint().authorities;
    const ScriptedServer server(localhost(), sending(reply(200, answerOfA)));
    ASSERT_EQ(explainBy(server), "A");

    qunsetenv("SSL_CERT_FILE");

    EXPECT_THAT(explainBy(server), StartsWith(requestFailed));
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(Transfer, NeedsACertificateForTheName)
{
    const ScriptedServer server(authority().issue("elsewhere.example"), sending(reply(200, answerOfA)));

    EXPECT_THAT(explainBy(server), StartsWith(requestFailed));
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(Transfer, NeedsACertificateThatIsStillAndAlreadyValid)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const ScriptedServer expired(authority().issue("localhost", now.addSecs(-60)), sending(reply(200, answerOfA)));
    const ScriptedServer early(authority().issue("localhost", now.addDays(2)), sending(reply(200, answerOfA)));

    EXPECT_THAT(explainBy(expired), StartsWith(requestFailed));
    EXPECT_THAT(explainBy(early), StartsWith(requestFailed));
    EXPECT_TRUE(expired.requests().isEmpty());
    EXPECT_TRUE(early.requests().isEmpty());
}

TEST_F(Transfer, NeedsAServerThatSpeaksTls)
{
    const PlainServer server({reply(200, answerOfA)});
    endpoint.host = server.host();

    EXPECT_THAT(explain(), StartsWith(requestFailed));
    EXPECT_FALSE(server.received().isEmpty());
    EXPECT_FALSE(server.received().contains("X-Device-UUID"));
}

TEST_F(Transfer, FailsWhenNobodyListens)
{
    ScriptedServer server(localhost(), sending(reply(200, answerOfA)));
    server.close();

    EXPECT_THAT(explainBy(server), StartsWith(requestFailed + "Failed to connect"));
}

TEST_F(Transfer, IsNotAttemptedWithoutAProperAddress)
{
    for (const char *host : {"", "two words", "localhost:99999", "[::1", "a%zz"}) {
        endpoint.host = QString::fromLatin1(host);
        EXPECT_EQ(explain(), "absent") << host;
    }
}

TEST_F(Transfer, IsEncryptedOrNone)
{
    const QUrl url(QStringLiteral("file:///etc/passwd"));

    const HttpsReply got = HttpsExchange().perform({.url = url, .headers = {}, .body = std::nullopt});

    EXPECT_FALSE(got.failure.isEmpty());
}

TEST_F(Transfer, FailsWhereNoThreadCanBeStarted)
{
    const ScriptedServer server(localhost(), sending(reply(200, answerOfA)));
    endpoint.host = server.host();

    const ChildResult result = inChild([this] {
        const rlimit none{.rlim_cur = 0, .rlim_max = 0};
        return becomeNobody() && setrlimit(RLIMIT_NPROC, &none) == 0 &&
               explain() == requestFailed + "Resource temporarily unavailable";
    });

    EXPECT_TRUE(result.succeeded) << result.output;
}

TEST_F(Transfer, FailsWhenTheConnectionIsCutWhateverTheStatus)
{
    const std::string transferClosed = requestFailed + "transfer closed";
    const QByteArray error = R"({"error":"e","message":"m"})";
    for (const int status : {200, 299, 302, 400, 401, 404, 407, 429, 500, 503, 599, 600}) {
        const QByteArray &body = status < 400 ? answerOfA : error;
        const QByteArray line = "HTTP/1.1 " + QByteArray::number(status) + " Said\r\n";

        EXPECT_THAT(explainAnswered(line + "Content-Length: 1000\r\n\r\n" + body), StartsWith(transferClosed))
            << status;
        EXPECT_THAT(explainAnswered(line + "Transfer-Encoding: chunked\r\n\r\n" + QByteArray::number(body.size(), 16) +
                                    "\r\n" + body + "\r\n"),
                    StartsWith(transferClosed))
            << status;
    }
}

TEST_F(Transfer, FailsAndIsNotTriedAgainWhenNoAnswerCame)
{
    for (const char *bytes :
         {"", "H", "HTTP/1.1 200 OK\r\nContent-Le", "no HTTP at all\r\n\r\n", "HTTP/1.1 abc OK\r\n\r\n"}) {
        const ScriptedServer server(localhost(), sending(bytes));

        EXPECT_THAT(explainBy(server), StartsWith(requestFailed)) << bytes;
        EXPECT_EQ(server.requests().size(), 1) << bytes;
        EXPECT_EQ(server.connections(), 1) << bytes;
    }
    const ScriptedServer garbage(localhost(), sending(QByteArray(4096, '\0')));
    EXPECT_THAT(explainBy(garbage), StartsWith(requestFailed));
}

} // namespace tidlo
