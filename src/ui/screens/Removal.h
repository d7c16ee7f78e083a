#pragma once

#include "app/AppViewModel.h"

#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// How the application can be removed, as the settings tell it: a bundle by the application itself, what was installed
/// by what installed it. Main thread.
class Removal : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, and it is given.")
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString action READ action NOTIFY changed)

public:
    /// \a app must outlive it.
    explicit Removal(AppViewModel &app, QObject *parent = nullptr);

    QString message() const; ///< What a person is told before they decide.
    QString action() const;  ///< What carryOut() does, in the words of a button.

    /// Looks at how things are now: where the application lies, and what installed it.
    Q_INVOKABLE void inspect();

    /// Has the application removed, or, where it is in no bundle, its preferences and caches. It quits then.
    Q_INVOKABLE void carryOut();

Q_SIGNALS:
    void changed();

private:
    AppViewModel &owner;
    bool isBundle = true;
    QString command; ///< What removes the application that was installed; empty if nothing is known of it.
};

} // namespace tidlo
