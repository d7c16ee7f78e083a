#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// Adds space between the lines of a text edit, which has no property for it. Main thread.
class LineSpacing : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickTextDocument *document READ document WRITE setDocument NOTIFY changed REQUIRED)
    /// Extra points between two lines.
    Q_PROPERTY(double spacing READ spacing WRITE setSpacing NOTIFY changed)

public:
    using QObject::QObject;

    QQuickTextDocument *document() const { return target; }
    void setDocument(QQuickTextDocument *document);
    double spacing() const { return room; }
    void setSpacing(double spacing);

Q_SIGNALS:
    void changed();

private:
    void apply();

    QPointer<QQuickTextDocument> target;
    double room = 0;
};

} // namespace tidlo
