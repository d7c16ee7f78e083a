#pragma once

#include "support/TemporaryHome.h"

#include <QProcess>

namespace tidlo {

/// A tidlo-proxy that runs, with a private state folder, on a port of its own. It is ended with the test.
class ProxyProcess final
{
public:
    /// Starts it, with \a environment as its own alone, and waits until it is ready.
    explicit ProxyProcess(const QStringList &arguments = {}, const QStringList &environment = {});
    ~ProxyProcess();

    const QString &origin() const { return announced; } ///< As it was announced: a scheme, an address and a port.
    int port() const { return announced.section(u':', -1).toInt(); }
    FilePath certificate() const { return home / "state/certificate.pem"; }
    FilePath key() const { return home / "state/key.pem"; }

    /// Asks it to stop.
    void terminate() { process.terminate(); }
    /// Runs the event loop until it has ended. Gives its exit status, -1 if a signal ended it.
    int waitForEnd();
    /// What it logged; to be asked when it has ended.
    QByteArray log() { return process.readAllStandardError(); }

private:
    TemporaryHome home;
    QProcess process;
    QString announced;
};

} // namespace tidlo
