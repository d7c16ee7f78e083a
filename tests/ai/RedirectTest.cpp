#include "ai/ExplainTest.h"

#include <gmock/gmock.h>

namespace tidlo {

using namespace std::chrono_literals;

namespace {

using Redirect = ExplainTest;

const QByteArray answer = reply(200, R"({"candidates":[{"content":{"parts":[{"text":"A"}]}}]})");

QByteArray redirection(int status, const QByteArray &location, const QByteArray &headers = {})
{
    return reply(status, "moved", "Location: " + location + "\r\n" + headers);
}

/// Redirects the first request, and answers the following ones. The connection is kept open.
ScriptedServer::Script redirectingOnce(const QByteArray &first)
{
    return [first](QSslSocket &connection, const ScriptedServer::Request &request) {
        connection.write(request.target == "/explain" ? first : answer);
    };
}

} // namespace

TEST_F(Redirect, ToTheSameOriginIsFollowedWithTheWholeRequestWhenItSaysSo)
{
    for (const int status : {307, 308}) {
        const ScriptedServer server(localhost(), redirectingOnce(redirection(status, "/second?a=b")));

        EXPECT_EQ(explainBy(server), "A") << status;

        ASSERT_EQ(server.requests().size(), 2);
        const ScriptedServer::Request &first = server.requests().at(0);
        const ScriptedServer::Request &second = server.requests().at(1);
        EXPECT_EQ(second.method, "POST");
        EXPECT_EQ(second.target, "/second?a=b");
        EXPECT_EQ(second.headers, first.headers);
        EXPECT_EQ(second.body, first.body);
    }
}

TEST_F(Redirect, OfAnyOtherKindIsFollowedWithoutTheBody)
{
    for (const int status : {301, 302, 303}) {
        const ScriptedServer server(localhost(), redirectingOnce(redirection(status, "/second")));

        EXPECT_EQ(explainBy(server), "A") << status;

        ASSERT_EQ(server.requests().size(), 2);
        const ScriptedServer::Request &second = server.requests().at(1);
        EXPECT_EQ(second.method, "GET");
        EXPECT_TRUE(second.headers.contains("X-Device-UUID"));
        EXPECT_FALSE(second.headers.contains("Content-Type"));
        EXPECT_TRUE(second.body.isEmpty());
    }
}

TEST_F(Redirect, MayNameItsOwnOriginInFull)
{
    QByteArray origin;
    const ScriptedServer server(localhost(), [&origin](QSslSocket &connection, const ScriptedServer::Request &request) {
        const QByteArray first = redirection(307, "https://" + origin + "/second");
        connection.write(request.target == "/explain" ? first : answer);
    });
    for (const QByteArray &spelling : {server.host().toUtf8(), server.host().toUtf8().toUpper()}) {
        origin = spelling;
        EXPECT_EQ(explainBy(server), "A") << spelling.constData();
    }
}

TEST_F(Redirect, MayComeFromAConnectionThatIsClosedThen)
{
    const ScriptedServer server(localhost(), [](QSslSocket &connection, const ScriptedServer::Request &request) {
        connection.write(request.target == "/explain" ? redirection(307, "/second") : answer);
        connection.disconnectFromHost();
    });

    EXPECT_EQ(explainBy(server), "A");
    EXPECT_EQ(server.requests().size(), 2);
}

TEST_F(Redirect, ToAnotherOriginIsTheFinalAnswerAndTellsThatOriginNothing)
{
    const ScriptedServer other(authority().issue("localhost"), sending(answer));
    for (const int status : {301, 302, 303, 307, 308}) {
        const ScriptedServer server(localhost(),
                                    sending(redirection(status, "https://" + other.host().toUtf8() + "/explain")));

        EXPECT_EQ(explainBy(server), "absent") << status;
        EXPECT_EQ(server.requests().size(), 1);
    }
    EXPECT_EQ(other.connections(), 0);
}

TEST_F(Redirect, ToAnotherSchemeOrNameOrNowhereIsTheFinalAnswer)
{
    QByteArray location;
    const ScriptedServer server(localhost(), [&location](QSslSocket &connection, const ScriptedServer::Request &) {
        connection.write(redirection(302, location));
    });
    const QByteArray host = server.host().toUtf8();
    const QByteArray port = host.mid(host.indexOf(':'));
    for (const QByteArray &elsewhere : {
             QByteArray("http://" + host + "/explain"),
             QByteArray("//127.0.0.1" + port + "/explain"),
             QByteArray("https://localhost.example" + port + "/"),
             QByteArray("https://localhost/"),
             QByteArray("file:///etc/passwd"),
             QByteArray("data:text/plain,hello"),
             QByteArray("javascript:alert(1)"),
             QByteArray("http://[::bad"),
             QByteArray(""),
         }) {
        location = elsewhere;
        EXPECT_EQ(explainBy(server), "absent") << elsewhere.constData();
    }
}

TEST_F(Redirect, IsNotFollowedForEver)
{
    const ScriptedServer server(localhost(), [](QSslSocket &connection, const ScriptedServer::Request &) {
        connection.write(redirection(307, "/again"));
    });

    EXPECT_EQ(explainBy(server), requestFailed + "There were too many redirects.");
    EXPECT_EQ(server.requests().size(), 21);
}

TEST_F(Redirect, DoesNotBuyTime)
{
    const ScriptedServer server(localhost(), [](QSslSocket &connection, const ScriptedServer::Request &request) {
        if (request.target == "/explain")
            connection.write(redirection(307, "/second"));
    });
    endpoint.timeLimit = 500ms;

    EXPECT_EQ(explainBy(server), requestFailed + "The request timed out.");
}

TEST_F(Redirect, IsFollowedForNoOtherStatus)
{
    for (const int status : {300, 304, 305, 306, 309, 399}) {
        const ScriptedServer server(localhost(), redirectingOnce(redirection(status, "/second")));

        EXPECT_EQ(explainBy(server), "absent") << status;
        EXPECT_EQ(server.requests().size(), 1) << status;
    }
}

TEST_F(Redirect, OffersNoPasswordThatItsAddressNames)
{
    QByteArray location;
    const ScriptedServer server(
        localhost(), [&location](QSslSocket &connection, const ScriptedServer::Request &request) {
            connection.write(request.target == "/explain" ? redirection(307, location) : answer);
        });
    location = "https://user:password@" + server.host().toUtf8() + "/second";

    EXPECT_EQ(explainBy(server), "A");

    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_EQ(server.requests().at(1).headers, server.requests().at(0).headers);
}

TEST_F(Redirect, IsAskedForOnceThoughItsConnectionWasKeptAndCloses)
{
    const ScriptedServer server(localhost(), [](QSslSocket &connection, const ScriptedServer::Request &request) {
        if (request.target == "/explain")
            connection.write(redirection(307, "/second"));
        else
            connection.disconnectFromHost();
    });

    EXPECT_THAT(explainBy(server), testing::StartsWith(requestFailed));
    EXPECT_EQ(server.requests().size(), 2);
}

TEST_F(Redirect, CarriesNoCookie)
{
    const ScriptedServer server(localhost(),
                                redirectingOnce(redirection(302, "/second", "Set-Cookie: a=b; Path=/\r\n")));

    EXPECT_EQ(explainBy(server), "A");
    EXPECT_EQ(explainBy(server), "A");

    ASSERT_EQ(server.requests().size(), 4);
    for (const ScriptedServer::Request &request : server.requests())
        EXPECT_FALSE(request.headers.contains("Cookie")) << request.target.constData();
}

} // namespace tidlo
