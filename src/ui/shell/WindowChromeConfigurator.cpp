#include "ui/shell/WindowChromeConfigurator.h"

WindowChromeConfigurator::WindowChromeConfigurator(QQuickItem *parent)
    : QQuickItem(parent)
{
    refresh();
}

void WindowChromeConfigurator::refresh()
{
    const auto apply = [this] {
        if (window())
            adjust(*window());
    };
    QMetaObject::invokeMethod(this, apply, Qt::QueuedConnection);
}

void WindowChromeConfigurator::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change != ItemSceneChange)
        return;
    if (watched)
        watched->disconnect(this);
    watched = data.window;
    if (watched)
        connect(watched, &QWindow::windowStateChanged, this, &WindowChromeConfigurator::refresh);
    refresh();
}
