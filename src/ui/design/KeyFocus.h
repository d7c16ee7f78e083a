#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

namespace tidlo {

/// Whether it was by the keyboard that an item got the keyboard: then it shows a ring while it has it. For items that
/// are no controls, which have visualFocus. Where the program gave it, that is so if a key was pressed last, and no
/// button of the mouse. A window that is left and returned to changes nothing, nor does a menu. Attached to items. Main
/// thread.
class KeyFocus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is attached to an item.")
    QML_ATTACHED(tidlo::KeyFocus)
    Q_PROPERTY(bool isVisual READ isVisual NOTIFY isVisualChanged)

public:
    explicit KeyFocus(QQuickItem &item);

    /// Of \a object; none if that is no item.
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
