#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

namespace tidlo {

/// Whether an item got the focus by the keyboard: then it shows a focus ring while it has the focus. For items that are
/// no controls; controls have visualFocus. If the program set the focus, it counts as by the keyboard if the last input
/// was a key and not a mouse button. Leaving the window and coming back changes nothing, nor does a menu. Attached to
/// items. Main thread.
class KeyFocus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is attached to an item.")
    QML_ATTACHED(tidlo::KeyFocus)
    Q_PROPERTY(bool isVisual READ isVisual NOTIFY isVisualChanged)

public:
    explicit KeyFocus(QQuickItem &item);

    /// The one attached to \a object; null if that is no item.
    static KeyFocus *qmlAttachedProperties(QObject *object);

    bool isVisual() const { return visual; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void isVisualChanged();

private:
    void follow(QQuickWindow *other);
    void focusBy(Qt::FocusReason reason);

    QPointer<QQuickWindow> window;
    bool isKeyLast = false;
    bool visual = false;
};

} // namespace tidlo
