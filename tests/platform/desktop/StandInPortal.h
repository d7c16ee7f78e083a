#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <map>
#include <optional>

namespace tidlo {

/// Replaces the desktop's settings portal, on a connection of its own. It answers with the values that a test sets, of
/// any type, and otherwise with an error.
class StandInPortal final : public QDBusVirtualObject
{
public:
    using Key = std::pair<QString, QString>; ///< The group of settings, and the setting's name in it.

    explicit StandInPortal(const QDBusConnection &connection);

    /// Its unique name on the bus.
    QString name() const { return bus.baseService(); }

    /// Takes the portal's well-known name on the bus, or gives it up.
    void appear();
    void vanish();

    /// Sets an answer. It is sent in a variant, as the portal does.
    void set(const QString &group, const QString &key, const QVariant &value);

    /// From now on every answer consists of \a arguments, whatever the question.
    void setEveryAnswer(const QVariantList &arguments) { everyAnswer = arguments; }

    /// Sends \a arguments as the signal for a change.
    void tellChange(const QVariantList &arguments);
    /// Sends a valid signal: one setting now has \a value.
    void tellChange(const QString &group, const QString &key, const QVariant &value);

    /// Sets whether questions wait; when that ends, those that waited are answered.
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
