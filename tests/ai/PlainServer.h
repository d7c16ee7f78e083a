#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

namespace tidlo {

/// Answers without TLS: each request with the next of its answers, and closes the connection after the last.
class PlainServer final
{
public:
    explicit PlainServer(const QByteArrayList &answers)
        : pending(answers)
    {
        EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
            QTcpSocket *connection = server.nextPendingConnection();
            QObject::connect(connection, &QTcpSocket::readyRead, &server, [this, connection] { answer(*connection); });
        });
    }

    quint16 port() const { return server.serverPort(); }
    QString host() const { return QStringLiteral("localhost:%1").arg(port()); }
    const QByteArray &received() const { return bytes; }

private:
    void answer(QTcpSocket &connection)
    {
        bytes += connection.readAll();
        if (!pending.isEmpty())
            connection.write(pending.takeFirst());
        if (pending.isEmpty())
            connection.disconnectFromHost();
    }

    QTcpServer server;
    QByteArrayList pending;
    QByteArray bytes;
};

} // namespace tidlo
