#include "platform/UserDefaults.h"

namespace tidlo {

UserDefaults::UserDefaults(QObject *parent)
    : QObject(parent)
    , store(preferencesOfUser())
{}

UserDefaults::UserDefaults(const QString &file, QObject *parent)
    : QObject(parent)
    , store(preferencesIn(file))
{}

QString UserDefaults::string(QLatin1StringView key, const QString &otherwise) const
{
    const QVariant found = store->value(key);
    return found.typeId() == QMetaType::QString ? found.toString() : otherwise;
}

bool UserDefaults::boolean(QLatin1StringView key) const
{
    return store->value(key).toString() == u"true"; // Any other text would convert to true as well.
}

void UserDefaults::set(QLatin1StringView key, const QVariant &value)
{
    store->set(key, value);
    Q_EMIT changed(key);
}

} // namespace tidlo
