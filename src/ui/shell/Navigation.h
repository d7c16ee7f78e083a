#pragma once

#include "app/AppViewModel.h"

#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// A button of the rail.
struct RailItem
{
    Q_GADGET
    QML_VALUE_TYPE(railItem)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString title MEMBER title)

public:
    QString symbol;
    QString title; ///< For assistive technology.
};

/// Which screen is shown, and how the rail changes that. Main thread.
class Navigation : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    Q_PROPERTY(QList<tidlo::RailItem> rail READ rail CONSTANT)
    Q_PROPERTY(int activeItem READ activeItem NOTIFY changed)
    Q_PROPERTY(Screen screen READ screen NOTIFY changed)

public:
    enum class Screen { Landing, Scanning, Results, Report, Settings };
    Q_ENUM(Screen)

    /// \a shown must outlive it.
    explicit Navigation(AppViewModel &shown, QObject *parent = nullptr);

    static QList<RailItem> rail();
    int activeItem() const; ///< The index of its button in the rail.
    Screen screen() const;

    /// Goes to the section of a button of the rail; out of range it does nothing.
    Q_INVOKABLE void press(int item);

Q_SIGNALS:
    void changed();

private:
    AppViewModel &app;
};

} // namespace tidlo
