#include "platform/desktop/PrivateBus.h"

#include "support/Patience.h"

#include <QFile>

#include <csignal>

#include <sys/prctl.h>

namespace tidlo {

namespace {

constexpr char configuration[] = R"(<busconfig>
  <type>session</type>
  <listen>unix:dir=%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>)";

} // namespace

PrivateBus::PrivateBus()
{
    const QString folder = QFile::decodeName(home.path());
    QFile file(folder + QStringLiteral("/bus.conf"));
    if (!file.open(QIODevice::WriteOnly) || file.write(QString::fromLatin1(configuration).arg(folder).toUtf8()) < 0)
        qFatal("There is no room for a configuration.");
    file.close();
    daemon.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); }); // However the test ends.
    daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--config-file=") + file.fileName(),
                                                 QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    while (!daemon.canReadLine()) {
        if (!daemon.waitForReadyRead(patience))
            qFatal("There is no message bus; see scripts/packages-debian-test.");
    }
    where = QString::fromUtf8(daemon.readLine()).trimmed();
}

PrivateBus::~PrivateBus()
{
    for (const QString &name : names)
        QDBusConnection::disconnectFromBus(name);
    daemon.terminate();
    daemon.waitForFinished(patience);
}

QDBusConnection PrivateBus::connection(const QString &name)
{
    names.append(name);
    return QDBusConnection::connectToBus(where, name);
}

} // namespace tidlo
