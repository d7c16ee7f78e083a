#pragma once

#include "support/TemporaryHome.h"

#include <QDBusConnection>
#include <QProcess>

namespace tidlo {

/// A message bus of a test's own, on which nothing can be started. Ends with it.
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
