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

    /// Another connection, named \a name, which is closed with the bus.
    QDBusConnection connection(const QString &name);

private:
    TemporaryHome home;
    QProcess daemon;
    QString address;
    QStringList names;
};

} // namespace tidlo
