#include "ui/screens/Preferences.h"

#include "ui/design/ThemePreference.h"

namespace tidlo {

Preferences::Preferences(UserDefaults &given, QObject *parent)
    : QObject(parent)
    , defaults(given)
{
    connect(&defaults, &UserDefaults::changed, this, [this](const QString &key) {
        if (key == UserDefaults::theme)
            Q_EMIT themeChanged();
        else if (key == UserDefaults::setupCompleted)
            Q_EMIT setupCompletedChanged();
        else if (key == UserDefaults::explanations)
            Q_EMIT explanationsChanged();
    });
}

QString Preferences::theme() const
{
    return defaults.string(UserDefaults::theme, defaultTheme);
}

void Preferences::setTheme(const QString &theme)
{
    defaults.set(UserDefaults::theme, theme);
}

bool Preferences::setupCompleted() const
{
    return defaults.boolean(UserDefaults::setupCompleted);
}

void Preferences::setSetupCompleted(bool completed)
{
    defaults.set(UserDefaults::setupCompleted, completed);
}

bool Preferences::explanations() const
{
    return defaults.boolean(UserDefaults::explanations, true);
}

void Preferences::setExplanations(bool areWanted)
{
    defaults.set(UserDefaults::explanations, areWanted);
}

} // namespace tidlo
