#pragma once

#include "platform/UserDefaults.h"

#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// The stored preferences, for views that show and change them. Every reader sees a change at once. Main thread.
class Preferences : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, and it is given.")
    Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY themeChanged)
    Q_PROPERTY(bool setupCompleted READ setupCompleted WRITE setSetupCompleted NOTIFY setupCompletedChanged)
    Q_PROPERTY(bool explanations READ explanations WRITE setExplanations NOTIFY explanationsChanged)

public:
    /// \a given must outlive it.
    explicit Preferences(UserDefaults &given, QObject *parent = nullptr);

    QString theme() const; ///< As ThemePreference.h explains it; the default if none is stored.
    void setTheme(const QString &theme);

    bool setupCompleted() const; ///< Whether the wizard of the first run was completed.
    void setSetupCompleted(bool completed);

    bool explanations() const; ///< Whether scans are explained, which asks a service; true if nothing is stored.
    void setExplanations(bool areWanted);

Q_SIGNALS:
    void themeChanged();
    void setupCompletedChanged();
    void explanationsChanged();

private:
    UserDefaults &defaults;
};

} // namespace tidlo
