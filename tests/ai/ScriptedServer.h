#pragma once

#include "ai/TestAuthority.h"

#include <QList>
#include <QSslServer>
#include <QSslSocket>

#include <functional>
#include <map>

namespace tidlo {

/// A TLS server on this machine that answers requests with the exact bytes of a script. It runs on the event loop of
/// the test.
class ScriptedServer final
{
public:
    struct Request
    {
        QByteArray method;
        QByteArray target;
        std::map<QByteArray, QByteArray> headers; ///< By name, as sent.
        QByteArray body;
    };
    /// Called with each complete request; may keep the connection, which belongs to the server.
    using Script = std::function<void(QSslSocket &connection, const Request &request)>;

    /// \a protocols are the names of those that it offers inside TLS; it speaks only HTTP/1.1.
    ScriptedServer(const TestIdentity &identity, Script script, const QList<QByteArray> &protocols = {});

    /// "localhost" and the port.
    QString host() const; ///< Also after the server was closed.
    const QList<Request> &requests() const { return received; }
    qsizetype connections() const { return accepted; }

    /// Accepts no more connections.
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

/// A complete reply with its length.
QByteArray reply(int status, const QByteArray &body, const QByteArray &headers = {});

} // namespace tidlo
