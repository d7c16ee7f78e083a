#include "ui/design/KeyFocus.h"

#include <QFocusEvent>

namespace tidlo {

KeyFocus::KeyFocus(QQuickItem &item)
    : QObject(&item)
{
    item.installEventFilter(this);
    connect(&item, &QQuickItem::windowChanged, this, &KeyFocus::follow);
    follow(item.window());
}

KeyFocus *KeyFocus::qmlAttachedProperties(QObject *object)
{
    auto *item = qobject_cast<QQuickItem *>(object);
    return item ? new KeyFocus(*item) : nullptr;
}

void KeyFocus::follow(QQuickWindow *other)
{
    if (window)
        window->removeEventFilter(this);
    window = other;
    if (window)
        window->installEventFilter(this);
}

bool KeyFocus::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != window) {
        if (event->type() == QEvent::FocusIn)
            focusBy(static_cast<QFocusEvent *>(event)->reason());
    } else if (event->type() == QEvent::KeyPress) {
        isKeyLast = true;
    } else if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin) {
        isKeyLast = false;
    }
    return QObject::eventFilter(watched, event);
}

void KeyFocus::focusBy(Qt::FocusReason reason)
{
    bool isByKeys = false;
    switch (reason) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
        return; // The focus comes back.
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        isByKeys = true;
        break;
    case Qt::OtherFocusReason:
        isByKeys = isKeyLast;
        break;
    default:
        break;
    }
    if (visual == isByKeys)
        return;
    visual = isByKeys;
    Q_EMIT isVisualChanged();
}

} // namespace tidlo
