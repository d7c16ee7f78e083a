#include "ui/shell/WindowChromeConfigurator.h"

namespace tidlo {

WindowChromeConfigurator::WindowChromeConfigurator(QQuickItem *parent)
    : QQuickItem(parent)
{
    watch(window()); // The parent's window, for which there was no change signal.
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
    if (change == ItemSceneChange)
        watch(data.window);
}

void WindowChromeConfigurator::watch(QQuickWindow *window)
{
    if (watched)
        watched->disconnect(this);
    watched = window;
    if (watched)
        connect(watched, &QWindow::windowStateChanged, this, &WindowChromeConfigurator::refresh);
    refresh();
}

} // namespace tidlo
