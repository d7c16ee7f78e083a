#pragma once

#include "app/AppViewModel.h"

#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// How the application can be removed, for the settings: a bundle is removed by the application itself, an installed
/// program by the installer that put it there. Main thread.
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

    QString message() const; ///< The text that a person reads before they decide.
    QString action() const;  ///< What carryOut() does, as the label of a button.

    /// Looks up where the application lies now, and what installed it.
    Q_INVOKABLE void inspect();

    /// Removes the application or, if it is in no bundle, its preferences and caches. The application then quits.
    Q_INVOKABLE void carryOut();

Q_SIGNALS:
    void changed();

private:
    AppViewModel &owner;
    bool isBundle = true;
    QString command; ///< The command that removes the installed application; empty if none is known.
};

} // namespace tidlo
