#pragma once

#include <QQuickItem>

namespace tidlo {

/// A handle of the window: dragging it moves the window or, at an edge or corner, resizes it. The system does the work,
/// once for each press of the left button. Items above it that take presses hide it from the pointer.
class WindowHandle : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// The edges that follow the pointer; none moves the window.
    Q_PROPERTY(Qt::Edges edges MEMBER edges)

public:
    explicit WindowHandle(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void pressed();
    void doubleClicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    Qt::Edges edges;
    QPointF pressedAt;
    bool isHeld = false; ///< Pressed, and the system has not taken over the drag.
};

} // namespace tidlo
