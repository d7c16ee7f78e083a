#include "ai/ExplainTest.h"

#include <QCoreApplication>
#include <QCoro/QCoroTask>
#include <QFile>

namespace tidlo {

namespace {

/// The authorities in the file that the environment names; reading the system's takes longer than everything else.
QByteArray namedAuthorities()
{
    QFile file(QFile::decodeName(qgetenv("SSL_CERT_FILE")));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

void forgetProxies()
{
    for (const char *proxy : {"https_proxy", "HTTPS_PROXY", "http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"})
        qunsetenv(proxy);
}

} // namespace

const TestAuthority &ExplainTest::authority()
{
    static const TestAuthority authority;
    return authority;
}

const TestIdentity &ExplainTest::localhost()
{
    static const TestIdentity identity = authority().issue("localhost");
    return identity;
}

ExplainTest::ExplainTest()
{
    const FilePath path = folder.file("authority.pem", 0);
    QFile file(QFile::decodeName(path));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(authority().certificate()) > 0);
    qputenv("SSL_CERT_FILE", path);
    endpoint.authorities = namedAuthorities;
    forgetProxies();
}

ExplainTest::~ExplainTest()
{
    qunsetenv("SSL_CERT_FILE");
    forgetProxies();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::string ExplainTest::explain(const QList<CleanupCandidate> &candidates) const
{
    const std::optional<QString> explanation = QCoro::waitFor(GeminiClient::explain(candidates, endpoint));
    return explanation ? explanation->toStdString() : "absent";
}

std::string ExplainTest::explainBy(const ScriptedServer &server, const QList<CleanupCandidate> &candidates)
{
    endpoint.host = server.host();
    return explain(candidates);
}

std::string ExplainTest::explainAnswered(const QByteArray &bytes)
{
    const ScriptedServer server(localhost(), sending(bytes));
    return explainBy(server);
}

} // namespace tidlo
