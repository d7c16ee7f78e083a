#include "ui/shell/WindowHandle.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QStyleHints>

namespace tidlo {

WindowHandle::WindowHandle(QQuickItem *parent)
    : QQuickItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton);
}

void WindowHandle::mousePressEvent(QMouseEvent *event)
{
    pressedAt = event->scenePosition();
    isHeld = true;
    Q_EMIT pressed();
}

void WindowHandle::mouseMoveEvent(QMouseEvent *event)
{
    // A release may come with one last move, long after the system has taken over the drag.
    const QPointF way = event->scenePosition() - pressedAt;
    if (!isHeld || way.manhattanLength() < QGuiApplication::styleHints()->startDragDistance())
        return;
    isHeld = false;
    if (edges != Qt::Edges())
        window()->startSystemResize(edges);
    else
        window()->startSystemMove();
}

void WindowHandle::mouseDoubleClickEvent(QMouseEvent *)
{
    isHeld = false;
    Q_EMIT doubleClicked();
}

} // namespace tidlo
