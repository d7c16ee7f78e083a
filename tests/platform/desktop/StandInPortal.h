#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <map>
#include <optional>

namespace tidlo {

/// Stands in for the desktop's portal for settings, on a connection of its own. It answers what it is told to, of
/// whatever type, and by an error otherwise.
class StandInPortal final : public QDBusVirtualObject
{
public:
    using Key = std::pair<QString, QString>; ///< The group of settings, and the setting's name in it.

    explicit StandInPortal(const QDBusConnection &connection);

    /// Its own name on the bus.
    QString name() const { return bus.baseService(); }

    /// Takes the portal's name on the bus, or gives it up.
    void appear();
    void vanish();

    /// What is answered from now on. It goes out in the box that the portal puts it in.
    void set(const QString &group, const QString &key, const QVariant &value);

    /// From now on every answer consists of these, whatever is asked.
    void setEveryAnswer(const QVariantList &arguments) { everyAnswer = arguments; }

    /// Sends \a arguments as the signal that tells of a change.
    void tellChange(const QVariantList &arguments);
    /// The same in order: of one setting that is now \a value.
    void tellChange(const QString &group, const QString &key, const QVariant &value);

    /// Whether questions wait, from now on; those that do are answered once they need not.
    void hold(bool held);

    int questions() const { return asked; }

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QDBusMessage answerTo(const QDBusMessage &question) const;

    QDBusConnection bus;
    std::map<Key, QVariant> values;
    std::optional<QVariantList> everyAnswer;
    QList<QDBusMessage> waiting;
    bool isHeld = false;
    int asked = 0;
};

} // namespace tidlo
