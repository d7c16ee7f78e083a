#include "platform/desktop/StandInPortal.h"

#include <QDBusVariant>

#include <utility>

namespace tidlo {

namespace {

constexpr QLatin1StringView service("org.freedesktop.portal.Desktop");
constexpr QLatin1StringView path("/org/freedesktop/portal/desktop");
constexpr QLatin1StringView interface("org.freedesktop.portal.Settings");

QVariant boxed(const QVariant &value)
{
    return QVariant::fromValue(QDBusVariant(value));
}

} // namespace

StandInPortal::StandInPortal(const QDBusConnection &connection)
    : bus(connection)
{
    if (!bus.registerVirtualObject(path, this))
        qFatal("There is no bus to stand on.");
}

void StandInPortal::appear()
{
    if (!bus.registerService(service))
        qFatal("There is a portal already.");
}

void StandInPortal::vanish()
{
    bus.unregisterService(service);
}

void StandInPortal::set(const QString &group, const QString &key, const QVariant &value)
{
    values.insert_or_assign({group, key}, value);
}

void StandInPortal::tellChange(const QVariantList &arguments)
{
    QDBusMessage signal = QDBusMessage::createSignal(path, interface, QStringLiteral("SettingChanged"));
    signal.setArguments(arguments);
    bus.send(signal);
}

void StandInPortal::tellChange(const QString &group, const QString &key, const QVariant &value)
{
    tellChange({group, key, boxed(value)});
}

void StandInPortal::hold(bool held)
{
    isHeld = held;
    if (isHeld)
        return;
    for (const QDBusMessage &question : std::exchange(waiting, {}))
        bus.send(answerTo(question));
}

QString StandInPortal::introspect(const QString &) const
{
    return {};
}

bool StandInPortal::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    ++asked;
    if (isHeld)
        waiting.append(message);
    else
        bus.send(answerTo(message));
    return true;
}

QDBusMessage StandInPortal::answerTo(const QDBusMessage &question) const
{
    if (everyAnswer)
        return question.createReply(*everyAnswer);
    const QVariantList arguments = question.arguments();
    const auto found = question.interface() == interface && question.member() == QLatin1StringView("Read") &&
                               question.signature() == QLatin1StringView("ss")
                           ? values.find({arguments.at(0).toString(), arguments.at(1).toString()})
                           : values.end();
    if (found == values.end())
        return question.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                                         QStringLiteral("Requested setting not found"));
    return question.createReply(boxed(boxed(found->second)));
}

} // namespace tidlo
