#pragma once

#include "platform/UserDefaults.h"

#include <QtQml/qqmlregistration.h>

/// The stored preferences, for views that show and change them. A change reaches every reader at once. Main thread.
class Preferences : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, and it is given.")
    Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY themeChanged)

public:
    /// \a defaults must outlive it.
    explicit Preferences(UserDefaults &defaults, QObject *parent = nullptr);

    QString theme() const; ///< As ThemePreference.h explains it; "dark" if none is stored.
    void setTheme(const QString &theme);

Q_SIGNALS:
    void themeChanged();

private:
    UserDefaults &defaults;
};
