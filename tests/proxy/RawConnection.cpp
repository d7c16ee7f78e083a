#include "proxy/RawConnection.h"

#include "support/Patience.h"

#include <QNetworkProxy>

#include <gtest/gtest.h>

namespace tidlo {

RawConnection::RawConnection(int port)
{
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.connectToHost(QStringLiteral("127.0.0.1"), static_cast<quint16>(port));
    EXPECT_TRUE(socket.waitForConnected(patience)) << socket.errorString().toStdString();
}

RawConnection &RawConnection::send(const QByteArray &bytes)
{
    socket.write(bytes);
    while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(patience)) {
    }
    return *this;
}

QByteArray RawConnection::next()
{
    EXPECT_TRUE(socket.waitForReadyRead(patience));
    return socket.readAll();
}

QByteArray RawConnection::toEnd()
{
    while (socket.state() == QAbstractSocket::ConnectedState && socket.waitForReadyRead(patience)) {
    }
    EXPECT_NE(socket.error(), QAbstractSocket::SocketTimeoutError) << "the server hangs";
    return socket.readAll();
}

QByteArray explainRequest(const QByteArray &body, const QByteArray &headers)
{
    return "POST /explain HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/json\r\n" + headers +
           "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

} // namespace tidlo
