#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// What the settings say about the AI proxy. It asks nobody: the text is the same whatever the proxy does.
class ProxyStatus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString sentence READ sentence CONSTANT)

public:
    using QObject::QObject;

    static QString sentence();
};

} // namespace tidlo
