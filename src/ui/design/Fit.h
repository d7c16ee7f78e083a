#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// The scale at which everything is drawn in a window that is smaller than its content; 1 is as designed. The window
/// sets it; sheets, menus and tips over the content use it as well. Main thread.
class Fit : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(double scale MEMBER scale NOTIFY scaleChanged)

Q_SIGNALS:
    void scaleChanged();

private:
    double scale = 1;
};

} // namespace tidlo
