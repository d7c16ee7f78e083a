#pragma once

#include "platform/UserDefaults.h"

#include <QtQml/qqmlregistration.h>

/// The stored theme preference, for views that show and change it. Main thread.
class StoredTheme final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, and it is given.")
    Q_PROPERTY(QString value READ value WRITE setValue NOTIFY valueChanged)

public:
    /// \a defaults must outlive it.
    explicit StoredTheme(UserDefaults &defaults, QObject *parent = nullptr);

    QString value() const;
    void setValue(const QString &value);

Q_SIGNALS:
    void valueChanged();

private:
    UserDefaults &defaults;
};
