#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

namespace tidlo {

/// Whether the window of an item can be seen: it is shown, not minimised, and exposed according to the system. Endless
/// animations pause while it cannot be seen. Attached to items; an item without a window cannot be seen. Main thread.
class Sight : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is attached to an item.")
    QML_ATTACHED(tidlo::Sight)
    Q_PROPERTY(bool isSeen READ isSeen NOTIFY isSeenChanged)

public:
    explicit Sight(QQuickItem &item);

    /// The one attached to \a object; null if that is no item.
    static Sight *qmlAttachedProperties(QObject *object);

    bool isSeen() const { return seen; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void isSeenChanged();

private:
    void follow(QQuickWindow *other);
    void update();

    QPointer<QQuickWindow> window;
    bool seen = false;
};

} // namespace tidlo
