#pragma once

#include "app/AppViewModel.h"

#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// What is sent to have scans explained, and to whom: for the last scan, or, before anything was sent, as an example.
/// Main thread.
class Disclosure : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString sentence READ sentence NOTIFY changed)
    Q_PROPERTY(QString request READ request NOTIFY changed)
    Q_PROPERTY(QString rest READ rest NOTIFY changed)

public:
    /// \a shownApp must outlive it.
    explicit Disclosure(AppViewModel &shownApp, QObject *parent = nullptr);

    QString title() const;
    QString sentence() const; ///< Who is asked, and whether \c request was sent or is an example.
    /// All that is sent: its first 20,000 characters, with invisible ones escaped. Empty if nobody would be asked.
    QString request() const;
    QString rest() const; ///< How many more characters there are, as a sentence; empty if there are none.

    /// Copies all that is sent to the clipboard, unchanged.
    Q_INVOKABLE void copy() const;

Q_SIGNALS:
    void changed();

private:
    QString wholeRequest() const;

    AppViewModel &app;
};

} // namespace tidlo
