#include "ui/design/Sight.h"

#include <QEvent>

namespace tidlo {

Sight::Sight(QQuickItem &item)
    : QObject(&item)
{
    connect(&item, &QQuickItem::windowChanged, this, &Sight::follow);
    follow(item.window());
}

Sight *Sight::qmlAttachedProperties(QObject *object)
{
    auto *item = qobject_cast<QQuickItem *>(object);
    return item ? new Sight(*item) : nullptr;
}

bool Sight::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Expose)
        update();
    return QObject::eventFilter(watched, event);
}

void Sight::follow(QQuickWindow *other)
{
    if (window) {
        window->removeEventFilter(this);
        window->disconnect(this);
    }
    window = other;
    if (window) {
        window->installEventFilter(this);
        connect(window, &QWindow::visibilityChanged, this, &Sight::update);
    }
    update();
}

void Sight::update()
{
    const bool isNowSeen =
        window != nullptr && window->isVisible() && window->visibility() != QWindow::Minimized && window->isExposed();
    if (isNowSeen == seen)
        return;
    seen = isNowSeen;
    Q_EMIT isSeenChanged();
}

} // namespace tidlo
