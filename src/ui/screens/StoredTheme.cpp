#include "ui/screens/StoredTheme.h"

StoredTheme::StoredTheme(UserDefaults &given, QObject *parent)
    : QObject(parent)
    , defaults(given)
{
    connect(&defaults, &UserDefaults::changed, this, [this](const QString &key) {
        if (key == UserDefaults::theme)
            Q_EMIT valueChanged();
    });
}

QString StoredTheme::value() const
{
    return defaults.string(UserDefaults::theme, QStringLiteral("dark"));
}

void StoredTheme::setValue(const QString &value)
{
    defaults.set(UserDefaults::theme, value);
}
