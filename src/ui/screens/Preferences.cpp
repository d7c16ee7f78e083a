#include "ui/screens/Preferences.h"

Preferences::Preferences(UserDefaults &given, QObject *parent)
    : QObject(parent)
    , defaults(given)
{
    connect(&defaults, &UserDefaults::changed, this, [this](const QString &key) {
        if (key == UserDefaults::theme)
            Q_EMIT themeChanged();
    });
}

QString Preferences::theme() const
{
    return defaults.string(UserDefaults::theme, QStringLiteral("dark"));
}

void Preferences::setTheme(const QString &theme)
{
    defaults.set(UserDefaults::theme, theme);
}
