#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// What the settings say about the AI proxy. It sends no request: the text is the same whatever the proxy does.
class ProxyStatus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString sentence READ sentence CONSTANT)
    Q_PROPERTY(QString nobody READ nobody CONSTANT)

public:
    using QObject::QObject;

    static QString sentence(); ///< Who is asked.
    static QString nobody();   ///< Says that nobody is asked.
};

} // namespace tidlo
