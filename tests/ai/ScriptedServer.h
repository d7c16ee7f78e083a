#pragma once

#include "ai/TestAuthority.h"

#include <QList>
#include <QSslServer>
#include <QSslSocket>

#include <functional>
#include <map>

namespace tidlo {

/// A TLS server on this machine that answers requests as it is told, byte by byte. It lives on the event loop of the
/// test.
class ScriptedServer final
{
public:
    struct Request
    {
        QByteArray method;
        QByteArray target;
        std::map<QByteArray, QByteArray> headers; ///< By their names as they were written.
        QByteArray body;
    };
    /// Called with each whole request; may keep the connection, which belongs to the server.
    using Script = std::function<void(QSslSocket &connection, const Request &request)>;

    /// \a protocols are those that it offers to speak inside TLS, in words; it speaks HTTP/1.1 alone.
    ScriptedServer(const TestIdentity &identity, Script script, const QList<QByteArray> &protocols = {});

    /// "localhost" and the port.
    QString host() const; ///< Also of one that was closed.
    const QList<Request> &requests() const { return received; }
    qsizetype connections() const { return accepted; }

    /// No longer accepts anything.
    void close() { server.close(); }

private:
    void accept();
    void read(QSslSocket *connection, QByteArray &pending);

    QSslServer server;
    quint16 port = 0;
    Script script;
    QList<Request> received;
    qsizetype accepted = 0;
};

/// Sends \a bytes and closes the connection.
ScriptedServer::Script sending(const QByteArray &bytes);

/// A whole reply with a length.
QByteArray reply(int status, const QByteArray &body, const QByteArray &headers = {});

} // namespace tidlo
