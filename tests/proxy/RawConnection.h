#pragma once

#include <QByteArray>
#include <QTcpSocket>

namespace tidlo {

/// A connection to a server on this machine, on which a test sends what it likes. Waits for events alone; only a server
/// that hangs makes it give up.
class RawConnection final
{
public:
    explicit RawConnection(int port);

    RawConnection &send(const QByteArray &bytes);
    /// What the server says next.
    QByteArray next();
    /// All that the server says until it ends the connection. One that does not is a failure.
    QByteArray toEnd();

private:
    QTcpSocket socket;
};

/// A whole request of the kind that the client sends.
QByteArray explainRequest(const QByteArray &body, const QByteArray &headers = "X-Device-UUID: A\r\n");

} // namespace tidlo
