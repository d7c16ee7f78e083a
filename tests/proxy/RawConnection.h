#pragma once

#include <QByteArray>
#include <QTcpSocket>

namespace tidlo {

/// A connection to a server on this machine, on which a test can send any bytes. It waits only for events; it gives up
/// only if the server hangs.
class RawConnection final
{
public:
    explicit RawConnection(int port);

    RawConnection &send(const QByteArray &bytes);
    /// The bytes that the server sends next.
    QByteArray next();
    /// All that the server sends until it ends the connection. If it does not, the test fails.
    QByteArray toEnd();

private:
    QTcpSocket socket;
};

/// A complete request like those of the client.
QByteArray explainRequest(const QByteArray &body, const QByteArray &headers = "X-Device-UUID: A\r\n");

} // namespace tidlo
