#pragma once

#include <QQuickItem>

namespace tidlo {

/// A place by which the window is held: a drag of it moves the window or, at an edge or corner, makes it larger or
/// smaller. The system carries that out, once for each press of the left button. What lies on it and takes presses
/// leaves it none.
class WindowHandle : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Those that go along with the pointer; none moves the window.
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
    bool isHeld = false; ///< And the system has not taken over.
};

} // namespace tidlo
