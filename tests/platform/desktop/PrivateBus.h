#pragma once

#include "support/TemporaryHome.h"

#include <QDBusConnection>
#include <QProcess>

namespace tidlo {

/// A message bus for one test, on which no service can be started. Ends with this object.
class PrivateBus final
{
public:
    PrivateBus();
    ~PrivateBus();

    /// Where programs find it, in the form of the variable DBUS_SESSION_BUS_ADDRESS.
    QString address() const { return where; }

    /// Another connection, named \a name, which is closed with the bus.
    QDBusConnection connection(const QString &name);

private:
    TemporaryHome home;
    QProcess daemon;
    QString where;
    QStringList names;
};

} // namespace tidlo
