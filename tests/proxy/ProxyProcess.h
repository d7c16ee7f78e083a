#pragma once

#include "support/TemporaryHome.h"

#include <QProcess>

namespace tidlo {

/// A running tidlo-proxy with a private state folder, on a port of its own. It is ended with the test.
class ProxyProcess final
{
public:
    /// Starts it with only \a environment, and waits until it is ready.
    explicit ProxyProcess(const QStringList &arguments = {}, const QStringList &environment = {});
    ~ProxyProcess();

    const QString &origin() const { return announced; } ///< As it printed: a scheme, an address and a port.
    int port() const { return announced.section(u':', -1).toInt(); }
    FilePath certificate() const { return home / "state/certificate.pem"; }
    FilePath key() const { return home / "state/key.pem"; }

    /// Sends it SIGTERM.
    void terminate() { process.terminate(); }
    /// Runs the event loop until it has ended. Returns its exit status, or -1 if a signal ended it.
    int waitForEnd();
    /// Its log; to be called after it has ended.
    QByteArray log() { return process.readAllStandardError(); }

private:
    TemporaryHome home;
    QProcess process;
    QString announced;
};

} // namespace tidlo
