#include "ai/ScriptedServer.h"

#include <gtest/gtest.h>

#include <memory>

namespace tidlo {

namespace {

/// Removes a complete request from the beginning of \a bytes; nothing if it is not complete yet.
std::optional<ScriptedServer::Request> takeRequest(QByteArray &bytes)
{
    const qsizetype headerEnd = bytes.indexOf("\r\n\r\n");
    if (headerEnd == -1)
        return std::nullopt;
    const QList<QByteArray> lines = bytes.left(headerEnd).replace("\r\n", "\n").split('\n');
    const QList<QByteArray> start = lines.constFirst().split(' ');
    ScriptedServer::Request request{.method = start.value(0), .target = start.value(1), .headers = {}, .body = {}};
    for (const QByteArray &line : lines.sliced(1)) {
        const qsizetype colon = line.indexOf(':');
        const bool isNew = request.headers.emplace(line.left(colon), line.mid(colon + 1).trimmed()).second;
        EXPECT_TRUE(isNew) << "sent twice: " << line.constData();
    }
    const qsizetype length = request.headers["Content-Length"].toLongLong();
    if (request.headers["Content-Length"].isEmpty())
        request.headers.erase("Content-Length");
    const qsizetype bodyStart = headerEnd + 4;
    if (bytes.size() < bodyStart + length)
        return std::nullopt;
    request.body = bytes.mid(bodyStart, length);
    bytes.remove(0, bodyStart + length);
    return request;
}

} // namespace

ScriptedServer::ScriptedServer(const TestIdentity &identity, Script answers, const QList<QByteArray> &protocols)
    : script(std::move(answers))
{
    QSslConfiguration configuration;
    configuration.setLocalCertificate(identity.certificate);
    configuration.setPrivateKey(identity.key);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    configuration.setAllowedNextProtocols(protocols);
    server.setSslConfiguration(configuration);
    QObject::connect(&server, &QTcpServer::pendingConnectionAvailable, &server, [this] { accept(); });
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost)) << qPrintable(server.errorString());
    port = server.serverPort();
}

QString ScriptedServer::host() const
{
    return QStringLiteral("localhost:%1").arg(port);
}

void ScriptedServer::accept()
{
    while (auto *connection = qobject_cast<QSslSocket *>(server.nextPendingConnection())) {
        ++accepted;
        const auto pending = std::make_shared<QByteArray>();
        const auto readMore = [this, connection, pending] { read(connection, *pending); };
        QObject::connect(connection, &QSslSocket::readyRead, &server, readMore);
        QObject::connect(connection, &QSslSocket::disconnected, connection, &QObject::deleteLater);
        readMore();
    }
}

void ScriptedServer::read(QSslSocket *connection, QByteArray &pending)
{
    pending += connection->readAll();
    while (const std::optional<Request> request = takeRequest(pending)) {
        received.append(*request);
        script(*connection, *request);
    }
}

ScriptedServer::Script sending(const QByteArray &bytes)
{
    return [bytes](QSslSocket &connection, const ScriptedServer::Request &) {
        connection.write(bytes);
        connection.disconnectFromHost();
    };
}

QByteArray reply(int status, const QByteArray &body, const QByteArray &headers)
{
    return "HTTP/1.1 " + QByteArray::number(status) + " Said\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\n" + headers + "\r\n" + body;
}

} // namespace tidlo
