#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// How large everything is drawn in a window that is smaller than its content: 1 is as designed. The window says so,
/// and what lies over its content, such as sheets, menus and tips, follows. Main thread.
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
